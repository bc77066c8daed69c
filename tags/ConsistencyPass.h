// Helpers of the pass that brings the template model up to the unit's
// limits, shared with the guarded additions and the limit commands.
#pragma once

#include <QModelIndex>

class DcLD;
class DcNextTransferSet;
class IEDTreeModel;
class myNode;

// Adds "DataSet_k" and "TrSet_k" to ld for k from first up to last; the two
// lists are kept in step.
void AddDataSetPairs(DcLD* ld, int first, int last);
// Makes the ICC's Next_DSTransfer_Set object with its members.
DcNextTransferSet* MakeNextSet(DcLD* ld);
// A new ICC "ICC_" + number in pVCC with its data sets and transfer sets up
// to maxDS and its self object; the node of its row with the folder rows
// beneath. The node isn't linked into any tree.
myNode* BornICCWithSets(int number);
// The row of the folder that holds the ICCs, found through the last ICC;
// invalid when the model has no ICC or the ICC has no row.
QModelIndex ICCFolderIndex(IEDTreeModel* model);
