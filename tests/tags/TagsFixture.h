// The form run on the small project, with the tag view of one mode and the
// model tree at hand.
#pragma once

#include "common/FormFixture.h"

#include <QModelIndex>
#include <QStringList>

class DcICCPBase;

class TagsTest : public FormTest {
protected:
    // The tag view shows `mode` with `root` at its top, as a click on the
    // unit leaves it.
    void ShowTags(CfgArvenSR* form, int mode, HostObject* root);
    // The row of the tag view that shows the object.
    QModelIndex TagRow(CfgArvenSR* form, HostObject* ob) const;
    // The model tree's row of the variable, or invalid.
    QModelIndex VarRow(CfgArvenSR* form, const QString& name) const;
    // Selects these rows of the tag view, the first one current.
    void SelectTags(CfgArvenSR* form, const QList<HostObject*>& obs);
    // Gives tVTags the keyboard focus.
    void FocusTags(CfgArvenSR* form);
    // Answers the next text input with `text`, or cancels it for a null text.
    void AnswerInput(const QString& text);
    // The property tree's edit of a parameter of ob from old to value.
    void EditProp(CfgArvenSR* form, HostObject* ob, const char* key, const QString& value,
                  const QString& old);

    QStringList inputTitles;
};
