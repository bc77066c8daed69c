// Free functions of variable creation: the default name of a type and the
// display trees of a variable for the value view. The members that turn tags
// into variables are declared with the form.
#pragma once

#include <QModelIndex>
#include <QString>
#include <string>

class QAbstractItemModel;
class DcDA;
class DcICCPBase;
class StringList;
class myNode;

// While a batch is open, the variables that CreateNewVarSimple makes wait
// for their owner's list, which takes them all when the batch closes, as if
// one by one.
void OpenVarBatch();
void CloseVarBatch();

// defname of a DcDAType or DcDOType; empty for anything else.
std::string GetDefFromType(DcICCPBase* type);

// Display trees of variables for the value view; the model is not touched.
// One child of root per entry of list; structures are opened below their
// rows and bit strings get one row per bit.
void List2Tree(myNode* root, StringList* list);
// The members of the DcDO of node, as List2Tree makes them.
void AddSubTree(myNode* node);
// The members of the DcDO of node; each DcDA as DcDAtoTree makes it.
void DcDO2Tree(myNode* node);
// A row for the variable, under it a row "value", under that its bits.
myNode* DcDAtoTree(DcDA* var);

// The first child row of parent showing text; invalid when there is none.
QModelIndex ChildRowByText(QAbstractItemModel* model, const QModelIndex& parent,
                           const QString& text);
