#include "ViewsFixture.h"

#include <QIcon>
#include <QPixmap>

#include "common/TestApp.h"
#include "xml/ModelRoad.h"

const QStringList kVccVars{"VCC_1", "Переменные"};
const QStringList kIcc{"VCC_1", "Inter Control Center's (ICC)", "ICC_1"};
const QStringList kIccVars = kIcc + QStringList{"Переменные"};
const QStringList kIccSet = kIcc + QStringList{"Наборы данных (DataSets)", "DataSet_1"};

void TemplTreeTest::SetUp() {
    EnsureApp();
    PrepareModelTables();
    myNode* tree = nullptr;
    ASSERT_TRUE(ReadModelText(ReadWholeFile(":/Templ"), &tree));
    ASSERT_NE(tree, nullptr);
    tree->DeleteSubTree();
    icc = qobject_cast<DcLD*>(ListOb(pVCC->ICCs, 0));
    ASSERT_NE(icc, nullptr);
    realQ = new DcDO("RealQ_1", qobject_cast<DcDOType*>(pDcDTTP->FindType("Data_RealQ")), icc);
    flag = new DcDA("Bool_1", GetDcDAType("BOOL"), icc);
    count = new DcDA("Count_1", GetDcDAType("INT16"), icc);
    for (DcICCPBase* variable : std::initializer_list<DcICCPBase*>{realQ, flag, count})
        icc->Vars.AddObject(variable->name, variable, true);

    tree = new myNode(pVCC->name, pVCC);
    pVCC->FillmyNode(tree);
    model = new IEDTreeModel(nullptr);
    model->setRootNode(tree);
}

void TemplTreeTest::TearDown() {
    delete model;
    GlobVarMem.Clear();
    myNode* freed = nullptr;
    ClearModel(freed);
}

QModelIndex TemplTreeTest::Row(const QStringList& path, int column) const {
    return FindRow(*model, path, column);
}

QStringList TemplTreeTest::Children(const QStringList& path) const {
    return ChildTexts(*model, path.isEmpty() ? QModelIndex() : Row(path));
}

DcICCPBase* ObjectOf(const QModelIndex& index) {
    return static_cast<DcICCPBase*>(index.data(Qt::UserRole).value<void*>());
}

QModelIndex FindRow(const QAbstractItemModel& model, const QStringList& path, int column) {
    QModelIndex row;
    for (const QString& text : path) {
        const int at = ChildTexts(model, row).indexOf(text);
        if (at < 0)
            return QModelIndex();
        row = model.index(at, 0, row);
    }
    return row.sibling(row.row(), column);
}

bool SameImage(const QVariant& icon, const QString& resource) {
    const QImage shown = icon.value<QIcon>().pixmap(16, 16).toImage();
    return !shown.isNull() && shown == QPixmap(resource).toImage().convertToFormat(shown.format());
}
