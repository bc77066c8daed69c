// The command to add by hand: its type, its instance number and whether an
// SBO twin goes with it. The caller reads the three widgets after exec().
#pragma once

#include <QDialog>

class QCheckBox;
class QComboBox;
class QDialogButtonBox;
class QSpinBox;

class DComm : public QDialog {
    Q_OBJECT
public:
    explicit DComm(QWidget* parent);

    // "ControlCommand", "DiscreteSetPoint", "RealSetPoint": the index is the
    // kind of command.
    QComboBox* comboBox;
    QSpinBox* spinBox;
    QCheckBox* checkBox; // "SBO", on at start
    QDialogButtonBox* buttonBox;
};

// The one dialog of the form, made on first use with `parent`, the form that
// asks.
extern DComm* FDComm;
DComm* NeedDComm(QWidget* parent);
