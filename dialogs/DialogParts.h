// Parts shared by the small dialogs that are built by hand.
#pragma once

#include <Qt>

class QBoxLayout;
class QDialog;
class QDialogButtonBox;

// An Ok and Cancel box named "buttonBox", added to the layout, its accepted
// and rejected signals tied to the dialog's accept and reject.
QDialogButtonBox* AddOkCancel(QDialog* dialog, QBoxLayout* layout, Qt::Orientation orientation);
