// Variables of the model tree put into a data set as members, with the data
// set's number written to their tags.
#include "dialogs/ChoiceDS.h"
#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/HostWall.h"
#include "support/myNode.h"
#include "tags/TagBinding.h"
#include "views/SomeModelsIED.h"

#include <QApplication>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>

namespace {

bool IsVariable(DcICCPBase* ob) {
    if (!ob)
        return false;
    const QString cls = ob->ClassName();
    return cls == "DcDA" || cls == "DcDO";
}

void Inform(QWidget* parent, const QString& text) {
    QMessageBox::information(parent, "Сообщение", text, QMessageBox::Ok);
}

// The data sets of the host row: the VCC's or the ICC's; null for any other.
StringList* HostDataSets(DcICCPBase* host, QString& prefix) {
    const QString cls = host->ClassName();
    if (cls == "DcVCC")
        return &static_cast<DcVCC*>(host)->DataSets;
    if (cls == "DcLD") {
        prefix = LocalToQ(host->name) + "/";
        return &static_cast<DcLD*>(host)->DataSets;
    }
    return nullptr;
}

// The 1-based number of the set in its owner's list; 1 for an owner that is
// neither VCC nor ICC. A set still kept in an ICC's list with the VCC as
// owner is numbered by the list it was chosen from.
int DataSetNumber(DcDataSet* set, StringList* chosenFrom) {
    DcICCPBase* owner = set->OwnerOb();
    QString prefix;
    StringList* list = owner ? HostDataSets(owner, prefix) : nullptr;
    if (!list)
        return 1;
    int position = FindIdObjByPtr(set, list);
    if (position < 0)
        position = FindIdObjByPtr(set, chosenFrom);
    return position + 1;
}

// The dialog's list: the host's data sets in order, each entry holding its set.
void FillDataSetChoice(ChoiceDS* dialog, StringList* sets, const QString& prefix) {
    for (int i = 0; i < sets->Count; ++i) {
        auto item = new QListWidgetItem(prefix + LocalToQ(sets->Strings(i)));
        item->setData(Qt::UserRole, QVariant::fromValue(sets->Objects(i)));
        dialog->listWidget->addItem(item);
    }
}

// The variables of the selection's column 0; false, after telling, when one
// is not a variable or has another parent than the first selected row.
bool SelectedVariables(CfgArvenSR* form, QList<DcICCPBase*>& vars) {
    const QModelIndexList selected = form->tVIed->selectionModel()->selectedIndexes();
    for (const QModelIndex& index : selected) {
        if (index.column() != 0)
            continue;
        auto var = static_cast<DcICCPBase*>(RowObject(index));
        if (index.parent() != selected.first().parent() || !IsVariable(var)) {
            Inform(form, "Выделенные элементы должны быть переменными и принадлежать одному "
                         "родителю");
            return false;
        }
        vars << var;
    }
    return true;
}

// The set chosen in the dialog, asked again while accepted with no entry;
// null when refused.
DcDataSet* ChooseDataSet(ChoiceDS* dialog) {
    int result = QDialog::Accepted;
    do
        result = dialog->exec();
    while (result == QDialog::Accepted && !dialog->listWidget->currentItem());
    return static_cast<DcDataSet*>(
        result == QDialog::Accepted
            ? dialog->listWidget->currentItem()->data(Qt::UserRole).value<void*>()
            : nullptr);
}

// Each variable joins the set under its full name, its tag taking the set's
// number, until one is already a member.
void AddMembers(CfgArvenSR* form, DcDataSet* set, int number, const QList<DcICCPBase*>& vars) {
    const QString ref = set->GetRefNameDS();
    for (DcICCPBase* var : vars) {
        // A failed read counts as another number; writes to a missing tag
        // fail in silence.
        void* tag = var->BoundTag;
        int old = 0;
        if (tag && GetIntProp(tag, "isinDataSet", old) && old == number)
            continue;
        if (tag)
            SetIntProp(tag, "isinDataSet", number);
        const std::string fullName = var->GetFullName();
        if (var->refDSRT.contains(ref) || set->Elems.IndexOf(fullName) >= 0) {
            Inform(form, "ССылка уже существует");
            break;
        }
        var->refDS += ref;
        var->refDSRT += ref;
        set->Elems.InsertObject(0, fullName, var);
        QListWidgetItem* shown = form->lWInfo->currentItem();
        if (shown && shown->text() == LocalToQ(set->GetFullName())) {
            auto item = new QListWidgetItem(LocalToQ(fullName));
            item->setData(Qt::UserRole, QVariant::fromValue(static_cast<void*>(var)));
            form->lWInfo_2->insertItem(0, item);
        }
        if (tag)
            SetIntProp(tag, "isinDataSet", number);
    }
}

} // namespace

void CfgArvenSR::OnAddOb2DS() {
    if (!pTreeIedModel)
        return;
    const QModelIndex current = tVIed->currentIndex();
    myNode* node = current.isValid() ? pTreeIedModel->nodeFromIndex(current) : nullptr;
    if (!node || !node->object)
        return;
    if (!IsVariable(static_cast<DcICCPBase*>(node->object)) || IsOwn(node, "DcDataSet"))
        return;

    ChoiceDS* dialog = NeedChoiceDS(this);
    dialog->setWindowFlags(dialog->windowFlags() & ~Qt::WindowContextHelpButtonHint);
    dialog->setWindowTitle("Перемещение в DataSet");
    dialog->listWidget->clear();

    const QModelIndex hostRow = FindHost(pTreeIedModel, current);
    auto host = static_cast<DcICCPBase*>(RowObject(hostRow));
    if (!host)
        return;
    QString prefix;
    StringList* sets = HostDataSets(host, prefix);
    if (!sets)
        return;
    FillDataSetChoice(dialog, sets, prefix);
    QList<DcICCPBase*> vars;
    if (!SelectedVariables(this, vars))
        return;

    if (MenuIed)
        MenuIed->hide();
    if (DcDataSet* set = ChooseDataSet(dialog))
        AddMembers(this, set, DataSetNumber(set, sets), vars);
    if (MenuIed && QApplication::activeWindow() == MenuIed)
        MenuIed->hide();
    if (MenuIed && MenuIed->isVisible())
        MenuIed->hide();
}
