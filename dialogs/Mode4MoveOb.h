// Where the selected members of a data set go: an owner (the VCC or an ICC
// by number) and a data set number, each picked in a combo box whose index
// is the number that a tag holds.
#pragma once

#include <QDialog>

class QComboBox;
class QDialogButtonBox;
class QLabel;

class Mode4MoveOb : public QDialog {
    Q_OBJECT
public:
    explicit Mode4MoveOb(QWidget* parent);

    QLabel* label;
    QComboBox* cBDomain; // "VCC", "ICC_1" ...
    QLabel* label_2;
    QComboBox* cBDataSet; // "NoDataSet", "DataSet_1" ...
    QDialogButtonBox* buttonBox;

    // Fills both boxes from the unit's limits.
    void OnShow();
};

// The one dialog, made on first use with parent and kept.
extern Mode4MoveOb* FMode4MoveOb;
Mode4MoveOb* NeedMode4MoveOb(QWidget* parent);
