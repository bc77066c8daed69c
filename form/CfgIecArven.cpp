#include "form/CfgIecArven.h"

#include "form/qolMouseFilter.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/CfgIecArvenlib.h"
#include "plugin/HostTitles.h"
#include "plugin/HostWall.h"
#include "plugin/cfgCalls.h"
#include "views/PropDelegate.h"
#include "views/PropDelegates.h"
#include "views/PropModel.h"
#include "views/PropTreeModel.h"
#include "views/SomeModelsIED.h"
#include "views/UnitTagsModel.h"

#include <QActionGroup>
#include <QBitmap>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenuBar>
#include <QPixmap>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

namespace {

struct tImageKey {
    const char* key;
    const char* resource;
};

// The image list in the order it is filled. LDico stands twice; the key
// CtrlSource loads the resource CtrlSource2.
const tImageKey ImageKeys[] = {
    {"Ied16Green", ":/Ied16Green.bmp"},
    {"IEDico", ":/IEDico.png"},
    {"LDico", ":/LDico"},
    {"LNico", ":/LNico.png"},
    {"DAico", ":/DAico.png"},
    {"FCico", ":/FCico.png"},
    {"DOIico", ":/DOIico.png"},
    {"Pass", ":/Pass.png"},
    {"SimOpen", ":/SimOpen.png"},
    {"SimSave", ":/SimSave"},
    {"Source", ":/Source.png"},
    {"ContrIn", ":/ContrIn.png"},
    {"ContrOut", ":/ContrOut.png"},
    {"Device10", ":/Device10.png"},
    {"MapFolger", ":/MapFolger"},
    {"Link", ":/Link"},
    {"plus", ":/plus"},
    {"minus", ":/minus"},
    {"DS", ":/DS"},
    {"FCDA", ":/FCDA"},
    {"AddVar", ":/AddVar"},
    {"VCC_10", ":/VCC_10"},
    {"LDico", ":/LDico"},
    {"Add2List", ":/Add2List"},
    {"DS_10", ":/DS_10"},
    {"VAR_10", ":/VAR_10"},
    {"Vplus", ":/Vplus"},
    {"DSplus", ":/DSplus"},
    {"Obplus", ":/Obplus"},
    {"DELETE", ":/DELETE"},
    {"DA_10", ":/DA_10"},
    {"DO_10", ":/DO_10"},
    {"Source2", ":/Source2"},
    {"Pass2", ":/Pass2"},
    {"CtrlPass2", ":/CtrlPass2"},
    {"CtrlSource", ":/CtrlSource2"},
};

const char* const HeaderStyle = "QHeaderView::section{background-color: lightgrey;}";
const char* const ItemStyle =
    "*::item{    border-top-width: 0px;    border-right-width: 1px;    border-bottom-width: 0px;"
    "    border-left-width: 0px;    border-style: solid;    border-color: silver;}"
    "*::item:selected{    background: palette(Highlight);}";

} // namespace

CfgArvenSR::CfgArvenSR(QWidget* parent) : QDialog(parent, Qt::WindowFlags()) {
    setupUi(this);
    Fillset1DS();
    setWindowTitle("Конфигуратор ICCP (сервер)");
    CreateModels();
    FillImageList1();
    CreateBars();
    CreateMenuBar();

    tVIed->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(tVIed, SIGNAL(customContextMenuRequested(QPoint)), this, SLOT(OnContMenuVIed(QPoint)));
    TagMode = 0;
    SetTagsManipulate();
    SetViewStyles();

    CreateSomeMenu();
    FillEditAct();
    SortDATypes();
    SecTypesAToUp();
    SortSecondaryTypes();

    ConnectModelViews();
    InstallMouseFilters();
    SetSelectionModes();
}

void CfgArvenSR::CreateModels() {
    pListTag = new StringList;
    pTagsModel = new UnitTagsModel(this);
    pPropTree = new PropTreeModel(this);
    connect(pPropTree, SIGNAL(ShowError(int, QString)), this, SLOT(ShowError(int, QString)));
    pPropDeleg = new PropDelegate(this);
    pTreeIedModel = new IEDTreeModel(this);
    // A drag from the model tree reports its count on the status bar.
    connect(pTreeIedModel, SIGNAL(sigShowStat(QString)), this, SLOT(slotShowStat(QString)));
    pPropIccp = new PropICCPModel(this);
    FillCompareType();
    connect(tVTags, SIGNAL(clicked(QModelIndex)), this, SLOT(OntVTagsClick(QModelIndex)));
}

// A dialog has no bars: a main window inside it carries them, with the
// whole widget tree as its central widget.
void CfgArvenSR::CreateBars() {
    toolBar = new QToolBar;
    wMain = new QMainWindow;
    wMain->setCentralWidget(splitter1);
    auto layout = new QVBoxLayout(this);
    layout->addWidget(wMain);
    statusBar = wMain->statusBar();
    mainBar = wMain->menuBar();
}

void CfgArvenSR::CreateMenuBar() {
    CreateMenuFile();
    mainBar->addMenu(FileMenu);
    EditMenu = new QMenu("Редактирование", this);
    mainBar->addMenu(EditMenu);
    wMain->addToolBar(Qt::TopToolBarArea, toolBar);
    FillInfoAct();
    lW_iedsInit();
}

void CfgArvenSR::SetViewStyles() {
    for (QTreeView* view : {tVIed, tVProp, tVTags, tVprop})
        view->header()->setStyleSheet(HeaderStyle);
    for (QTreeView* view : {tVIed, tVprop, tVProp})
        view->setStyleSheet(ItemStyle);
}

void CfgArvenSR::ConnectModelViews() {
    pDelegDesc = new PropDelegate4Desc(this);
    tVIed->setItemDelegate(pDelegDesc);
    connect(tVIed, SIGNAL(clicked(QModelIndex)), this, SLOT(OntVIedClicked(QModelIndex)));
    QFont font = label->font();
    font.setPointSize(10);
    label->setFont(font);
    connect(lWInfo, SIGNAL(currentItemChanged(QListWidgetItem*, QListWidgetItem*)), this,
            SLOT(OncurrentItemChangedDS(QListWidgetItem*, QListWidgetItem*)));
    connect(lWInfo_2, SIGNAL(itemDoubleClicked(QListWidgetItem*)), this,
            SLOT(OnItemDoubleClicked(QListWidgetItem*)));
    FirstShow = true;
    MenuIed->addAction(actDelOb);
    AddRenameAct();
}

// Each filter lives as a child of its view.
void CfgArvenSR::InstallMouseFilters() {
    QList<QWidget*> filtered;
    for (QTreeView* view : findChildren<QTreeView*>())
        filtered << view;
    filtered << lWInfo_2;
    for (QWidget* widget : filtered) {
        Filter = new qolMouseFilter(widget);
        widget->installEventFilter(Filter);
        connect(Filter, SIGNAL(SigActOb(QObject*)), this, SLOT(onFilterAct(QObject*)));
        connect(Filter, SIGNAL(CapOb(QObject*, int)), this, SLOT(onFilterOb(QObject*, int)));
    }
}

void CfgArvenSR::SetSelectionModes() {
    pDelegDcDA = new PropDelegateDcDA(this);
    tVprop->setItemDelegate(pDelegDcDA);
    tVIed->setSelectionMode(QAbstractItemView::ExtendedSelection);
    tVIed->setDragDropMode(QAbstractItemView::DragOnly);
    tVIed->setDragEnabled(true);

    connect(this, SIGNAL(sigShowStat(QString)), this, SLOT(slotShowStat(QString)));
    // lWInfo_2 is a plain list: it has no such signal, and the drop handler
    // stays unconnected.
    connect(lWInfo_2, SIGNAL(sigRecvData()), this, SLOT(slotOnRecvData()));
    lWInfo_2->setSelectionMode(QAbstractItemView::ExtendedSelection);
    tVTags->setSelectionMode(QAbstractItemView::ExtendedSelection);
    tVTags->setSortingEnabled(true);
    tVTags->sortByColumn(0, Qt::AscendingOrder);
    connect(lWInfo_2, SIGNAL(itemSelectionChanged()), this, SLOT(onItemSelectionChanged()));
}

void CfgArvenSR::FillImageList1() {
    ImageList = new StringList;
    for (const tImageKey& k : ImageKeys) {
        auto pixmap = new QPixmap(k.resource);
        // The bitmap has no alpha: its white ground is masked out.
        if (!pixmap->isNull() && !pixmap->hasAlpha())
            pixmap->setMask(pixmap->createHeuristicMask());
        ImageList->AddObject(k.key, pixmap, true);
    }
}

QIcon CfgArvenSR::ImageIcon(const std::string& key) const {
    const int i = ImageList->IndexOf(key);
    if (i < 0)
        return QIcon();
    return QIcon(*static_cast<QPixmap*>(ImageList->Objects(i)));
}

void CfgArvenSR::CreateMenuFile() {
    FileMenu = new QMenu("Файл", this);
    actOpenFile =
        new QAction(ImageIcon("SimOpen"), "Создать файл -- описатель BilateralTable", this);
    actOpenFile->setToolTip(actOpenFile->text());
    connect(actOpenFile, SIGNAL(triggered()), this, SLOT(OnLoadFile()));
    actSaveIed = new QAction(ImageIcon("SimSave"), "Сохранить BilateralTable в файл", this);
    connect(actSaveIed, SIGNAL(triggered()), this, SLOT(OnSaveIed()));
    // Replacing the templates leaves the variables on the old ones: the
    // command is kept out of sight.
    actUpDTTP = new QAction(QIcon(":/update"), "Обновить DataTypeTemplate", this);
    connect(actUpDTTP, SIGNAL(triggered()), this, SLOT(OnUpDTTP()));
    actUpDTTP->setVisible(false);
    for (QAction* action : {actOpenFile, actSaveIed, actUpDTTP}) {
        FileMenu->addAction(action);
        toolBar->addAction(action);
    }
}

void CfgArvenSR::FillInfoAct() {
    InfoMenu = new QMenu("Инфо", this);
    mainBar->addMenu(InfoMenu);
    InfoMenu->addSeparator();
    actValTags = InfoMenu->addAction("Корректность тегов");
    connect(actValTags, SIGNAL(triggered()), this, SLOT(OnValTagTree()));
    actReservDS = InfoMenu->addAction("DataSet&TransSet");
    connect(actReservDS, SIGNAL(triggered()), this, SLOT(onShowReservDSList()));
}

void CfgArvenSR::SetTagsManipulate() {
    ModeGroup = new QActionGroup(this);
    ModeGroup->setExclusive(true);
    actModeRecv = new QAction(QIcon(":/Source2"), "Принимаемые значения", ModeGroup);
    actModePass = new QAction(QIcon(":/Pass2"), "Передаваемые значения", ModeGroup);
    actModeCtrlRecv = new QAction(QIcon(":/CtrlSource2"), "Принимаемое управление", ModeGroup);
    actModeCtrlPass = new QAction(QIcon(":/CtrlPass2"), "Передаваемое управление", ModeGroup);
    for (QAction* action : ModeGroup->actions())
        action->setCheckable(true);
    actModeRecv->setChecked(true);
    actModeCtrlRecv->setEnabled(false);
    actModeCtrlPass->setEnabled(false);
    connect(ModeGroup, SIGNAL(triggered(QAction*)), this, SLOT(SetTagModeView(QAction*)));
    toolBar->addActions(ModeGroup->actions());

    TagsMenu = new QMenu("Теги", this);
    TagsMenu->addActions(ModeGroup->actions());
    TagsMenu->addSeparator();
    actUserTypes = TagsMenu->addAction("Пользовательские данные");
    connect(actUserTypes, SIGNAL(triggered()), this, SLOT(OnShowUserTypes()));

    // Attached to the view as well; the custom menu policy set later hides
    // them there.
    tVTags->addActions(ModeGroup->actions());
    auto separator = new QAction(this);
    separator->setSeparator(true);
    tVTags->addAction(separator);
    tVTags->setContextMenuPolicy(Qt::ActionsContextMenu);

    actDelTags = new QAction("Удалить теги(папки)", this);
    connect(actDelTags, SIGNAL(triggered()), this, SLOT(OnDelOb()));
    actCreateFolg = new QAction("Создать папку", this);
    connect(actCreateFolg, SIGNAL(triggered()), this, SLOT(OnCreateFolg()));
    actFindTree = new QAction("Найти в дереве устройства", this);
    connect(actFindTree, SIGNAL(triggered()), this, SLOT(OnFindTree()));
}

void CfgArvenSR::CreateSomeMenu() {
    MenuTags = new QMenu(this);
    MenuTags->addActions({actDelTags, actCreateFolg, actFindTree});
    tVTags->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(tVTags, SIGNAL(customContextMenuRequested(QPoint)), this,
            SLOT(OntVTagsContMenu(QPoint)));

    MenuIed = new QMenu(this);
    MenuIed->addSeparator();
    MenuIed->addSeparator();
    MenuIed->addSeparator();
    actShowType = MenuIed->addAction("Тип объекта");
    connect(actShowType, SIGNAL(triggered()), this, SLOT(slotShowType()));
    actFindInTag = MenuIed->addAction("Найти в тегах");
    connect(actFindInTag, SIGNAL(triggered()), this, SLOT(slotFindinTag()));

    // Made and stored, in no menu: its connection names a statement, not a
    // slot, and never resolves, so only its enabled state ever changes.
    actUnBind = new QAction("Снять флаг соответствия тегам", this);
    // clang-format off
    connect(actUnBind, SIGNAL(triggered()), this,
            SLOT(if (pTreeIedModel&&pTreeIedModel->FlagBindTag)pTreeIedModel->FlagBindTag = false;));
    // clang-format on

    actDelFromDS = new QAction("Удалить объект из DataSet", this);
    connect(actDelFromDS, SIGNAL(triggered()), this, SLOT(DeleteFromContentRefDS()));
    actMoveOb = new QAction("Переместить объект(ы) ", this);
    connect(actMoveOb, SIGNAL(triggered()), this, SLOT(MoveOb_ContDS()));
    lWInfo_2->addAction(actDelFromDS);
    lWInfo_2->addAction(actMoveOb);
    lWInfo_2->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void CfgArvenSR::FillEditAct() {
    actDelOb = new QAction(ImageIcon("DELETE"), "Удалить Объект", this);
    connect(actDelOb, SIGNAL(triggered()), this, SLOT(OnDelOb()));
    EditMenu->addAction(actDelOb);
    toolBar->addAction(actDelOb);
    toolBar->addSeparator();
    actAddVar = new QAction(ImageIcon("Vplus"), "Добавить переменную", this);
    connect(actAddVar, SIGNAL(triggered()), this, SLOT(OnAddVar()));
    EditMenu->addAction(actAddVar);
    toolBar->addAction(actAddVar);
    actAdd2DS = new QAction(ImageIcon("Add2List"), "Добавить объект в DataSet", this);
    connect(actAdd2DS, SIGNAL(triggered()), this, SLOT(OnAddOb2DS()));
    EditMenu->addAction(actAdd2DS);
    toolBar->addAction(actAdd2DS);
    MenuIed->addAction(actAdd2DS);
}

void CfgArvenSR::ConcludeConstructor() {
    tVProp->setItemDelegate(pPropDeleg);
    // Read as every opening of a unit reads it; the form has no use for it.
    int complete = 0;
    GetIntProp(RecvUnit, "sclcomplete", complete);
    connect(lW_ieds, SIGNAL(itemClicked(QListWidgetItem*)), this,
            SLOT(OnlW_UnitClicked(QListWidgetItem*)));
}

void CfgArvenSR::lW_iedsInit() {
    lW_ieds->clear();
    // Only the first unit of the owner is listed, whichever unit was passed.
    void* unit =
        cfgObChildCount(pCfgDirect, cotUnit) >= 1 ? cfgObChild(pCfgDirect, cotUnit, 0) : nullptr;
    if (unit) {
        auto item = new QListWidgetItem(GetTitle(unit), lW_ieds);
        item->setData(Qt::UserRole, QVariant::fromValue(unit));
        if (unit == RecvUnit)
            lW_ieds->setCurrentRow(0);
    }
    // Made again at every call, without a check: after n calls an edit
    // reaches OnExtUpd n times.
    connect(pPropTree, SIGNAL(UpdPropData(void*)), this, SLOT(OnExtUpd(void*)),
            Qt::DirectConnection);
}

void CfgArvenSR::SetEAena() {
    const QModelIndex index = tVIed->currentIndex();
    auto object = static_cast<DcICCPBase*>(index.data(Qt::UserRole).value<void*>());
    if (!object) {
        for (QAction* action : MenuIed->actions())
            action->setEnabled(false);
        actDelFromDS->setEnabled(false);
        return;
    }
    const QString cls = object->ClassName();
    const bool variable = cls == "DcDA" || cls == "DcDO";
    actAdd2DS->setEnabled(variable);
    actDelFromDS->setEnabled(variable);
    actShowType->setEnabled(variable);
    actDelOb->setEnabled(true);
}

void CfgArvenSR::OntVTagsContMenu(const QPoint& pos) {
    MenuTags->exec(tVTags->viewport()->mapToGlobal(pos));
}

void CfgArvenSR::OnContMenuVIed(const QPoint& pos) {
    SetEAena();
    actUnBind->setEnabled(pTreeIedModel && pTreeIedModel->FlagBindTag);
    MenuIed->show();
    MenuIed->move(tVIed->viewport()->mapToGlobal(pos));
}

void CfgArvenSR::slotShowStat(QString text) {
    statusBar->showMessage(text);
}

void CfgArvenSR::ShowError(int, QString caption) {
    statusBar->showMessage("Значение не принято: " + caption);
}

void CfgArvenSR::onFilterAct(QObject* ob) {
    if (ob->objectName() == "tVIed")
        actAddVar->setEnabled(true);
}

void CfgArvenSR::onFilterOb(QObject* ob, int) {
    FocusWidget = ob;
}

void CfgArvenSR::onItemSelectionChanged() {
    const int count = lWInfo_2->count();
    if (count <= 4)
        return;
    // The last four rows of a content list are the standard fields of the
    // set: once selected they can be neither selected nor edited again.
    for (int row = count - 4; row < count; ++row) {
        QListWidgetItem* item = lWInfo_2->item(row);
        if (item->isSelected())
            item->setFlags(item->flags() & ~(Qt::ItemIsSelectable | Qt::ItemIsEditable));
    }
}

void CfgArvenSR::OnShowUserTypes() {}

void CfgArvenSR::OnShowSCL() {}

void CfgArvenSR::UpdateUnit() {}

void CfgArvenSR::keyPressEvent(QKeyEvent* e) {
    // Escape would hide the dialog past closeEvent and lose the model's
    // save: it closes the form like the window's close button instead.
    if (e->key() == Qt::Key_Escape && e->modifiers() == Qt::NoModifier) {
        close();
        return;
    }
    QDialog::keyPressEvent(e);
}
