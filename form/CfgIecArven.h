// The configuration form: one modal dialog that shows the unit, its tags,
// the ICCP model and its data sets side by side. The dialog hosts a main
// window of its own for the menu bar, tool bar and status bar.
//
// The class is large on purpose: members that work on tags, on the model or
// on the views live in the .cpp files of their folders, and free functions
// reach the one form through FCfgArvenSR. Every field is public for them.
// Menus and keys reach slots by their names (string connections and
// QMetaObject::invokeMethod), so a slot declared here later connects by
// itself; the deleting members that the key filter calls are slots for that
// reason.
#pragma once

#include <QDialog>
#include <QIcon>
#include <QPoint>
#include <QString>
#include <QStringList>
#include <functional>
#include <string>
#include <vector>

#include "support/UStringList.h"
#include "ui_DArvenCfg.h"

class QAction;
class QActionGroup;
class QMainWindow;
class QMenu;
class QMenuBar;
class QStatusBar;
class QToolBar;
class TiXmlDocument;
class CpropNode;
class DcICCPBase;
class IEDTreeModel;
class PropDelegate4Desc;
class PropDelegateDcDA;
class PropICCPModel;
class UnitTagsModel;
class qolMouseFilter;

// The four names that a data set holds without a variable behind them.
extern QStringList set1DS;
// Work stack of host handles for the walks through tag folders.
extern std::vector<void*> Stack1;
void Fillset1DS();
// Runs f on the data set list of the VCC, then on that of each ICC in order.
void ForEachDataSetList(const std::function<void(StringList&)>& f);
// The list that a scoped name points into: for "ICC/name" the ICC's, for a
// bare name the VCC's; data set lists or variable lists as `dataSets` says.
// `name` takes the part after the first "/". Null for an unknown ICC.
StringList* ScopedList(class DcVCC* vcc, const std::string& key, bool dataSets, std::string& name);

class CfgArvenSR : public QDialog, public Ui_DArvenCfg {
    Q_OBJECT
public:
    explicit CfgArvenSR(QWidget* parent);

    QMainWindow* wMain = nullptr;     // holds the menu bar, tool bar and status bar
    qolMouseFilter* Filter = nullptr; // the last key filter made
    StringList* ImageList = nullptr;  // pixmaps (QPixmap*) by key
    QStringList XmlList;              // lines of the XML or CSV in work
    void* CurUnit = nullptr;          // the unit being edited
    bool FirstShow = false;
    IEDTreeModel* pTreeIedModel = nullptr;
    int IedCol0 = 0, IedCol1 = 0; // widths of the tVIed columns
    UnitTagsModel* pTagsModel = nullptr;
    class PropTreeModel* pPropTree = nullptr; // model of tVProp
    class PropDelegate* pPropDeleg = nullptr; // editors of tVProp
    PropDelegateDcDA* pDelegDcDA = nullptr;
    PropDelegate4Desc* pDelegDesc = nullptr;
    PropICCPModel* pPropIccp = nullptr;
    QMenuBar* mainBar = nullptr;
    QToolBar* toolBar = nullptr;
    QStatusBar* statusBar = nullptr;
    QMenu* FileMenu = nullptr;
    QMenu* EditMenu = nullptr;
    QMenu* InfoMenu = nullptr;
    QMenu* TagsMenu = nullptr;      // built, on no bar
    QAction* actOpenFile = nullptr; // "Создать файл -- описатель BilateralTable"
    QAction* actSaveIed = nullptr;  // "Сохранить BilateralTable в файл"
    QAction* actUpDTTP = nullptr;   // "Обновить DataTypeTemplate", invisible
    QAction* actDelOb = nullptr;    // "Удалить Объект"
    QAction* actAddVar = nullptr;   // "Добавить переменную"
    QAction* actAdd2DS = nullptr;   // "Добавить объект в DataSet"
    QAction* actValTags = nullptr;  // "Корректность тегов"
    QAction* actReservDS = nullptr; // "DataSet&TransSet"
    QAction* actModeRecv = nullptr; // the four tag modes, 0 to 3
    QAction* actModePass = nullptr;
    QAction* actModeCtrlRecv = nullptr;
    QAction* actModeCtrlPass = nullptr;
    QAction* actUserTypes = nullptr; // "Пользовательские данные"
    QAction* actDelTags = nullptr;   // context menu of tVTags
    QAction* actCreateFolg = nullptr;
    QAction* actFindTree = nullptr;
    QAction* actShowType = nullptr; // context menu of tVIed
    QAction* actFindInTag = nullptr;
    QAction* actUnBind = nullptr; // "Снять флаг соответствия тегам", inert
    QAction* actDelFromDS = nullptr; // actions of lWInfo_2
    QAction* actMoveOb = nullptr;
    int TagMode = 0; // tag kind shown in tVTags, 0 to 3
    QActionGroup* ModeGroup = nullptr;
    QMenu* MenuIed = nullptr;
    QMenu* MenuTags = nullptr;
    int WinState = 0;               // last Qt::WindowStates value
    int NormW = 0, NormH = 0;       // size in the normal state
    StringList ReserveList;         // data sets without transfer sets
    QPoint NormPos;                 // position in the normal state
    StringList* pListTag = nullptr; // tags by tag_id
    QObject* TekWdg = nullptr;      // the last list or tree that took the focus
    QObject* FocusWidget = nullptr; // the last of the four named trees

    // Construction.
    void ConcludeConstructor();
    void lW_iedsInit();
    void SetEAena();
    void FillImageList1();
    // The icon of an image list key; null for a key that isn't there.
    QIcon ImageIcon(const std::string& key) const;

    // The road of one run (see the plug-in's entry).
    void ResetFrm();
    void UpdAfterLoad(void* unit);

    // Model load and save.
    // Counts the loads of type templates: what a dialog shows of older ones
    // points at freed memory.
    int TemplLoads = 0;
    int loadFromTemplate();
    int LoadFile(const QString& path, QString& error);
    void ParseToTree(TiXmlDocument& document);
    void TekVCC2XMLList();
    void Write2CFG(void* unit);
    void Write2SCLFile(QStringList& lines, QString& path);
    void ClearICCP();
    void ClearNodeByStr(QString text);
    void ClearDS();
    void GetElemByFolder(int kind, QList<void*>& list);

    // Data set list.
    void UpDateFullDSList();

    // Window settings.
    void LoadSettings();
    void SaveSettings();
    void LoadDefSize();
    void LoadSettingsTVIED();
    void SaveSettingsTVIED();

    // Variables from tags.
    DcICCPBase* CreateNewVarSimple(void* tag, int& isDO, int reservedArg);
    // Fills the add-variable dialog for quantity variables.
    void Prepare4AddVar(int quantity);
    // Variables base + first ... with rows under the host's "Переменные";
    // kept from an older route, nothing calls it.
    bool CreateInTree(QString base, int first, int count, DcICCPBase* host, DcICCPBase* type,
                      StringList& out);
    // The object of the current row of tVIed; null for none or a folder.
    DcICCPBase* GetObFromtVIed();
    // A new ICC with its row and folder rows.
    void BornLD(std::string name);
    // Grows the data sets of the VCC and the data and transfer sets of each
    // ICC to maxDS.
    void AdDs();

    // Navigation between the panes and searches in their models.
    void ViewTags(void* unit);
    void RepaintTags();
    // The host object's properties in tVProp; null takes the model away.
    void SetPropModel(void* ob);
    void SetIsTagV(QModelIndex index);
    // Refills lWInfo and leaves the member list as it stands.
    void ResetInfoDS();
    // The first row whose UserRole is ob, searched from start (or the top)
    // through the whole tree; tells the user when there is none.
    QModelIndex FindByPVOID(void* ob, QAbstractItemModel* model, QModelIndex start);
    QModelIndex FindByRole(QVariant& value, int role, QAbstractItemModel* model, QModelIndex start);
    // The first row showing name, from start, in silence.
    QModelIndex FindInTreeByLongName(QModelIndex start, std::string name);
    // Always invalid.
    QModelIndex FindNode(QString text);

    // Consistency pass on load, the guarded additions of containers and the
    // unit's limits.
    void CheckLD();
    void CorrectQuanDS();
    void CreateNewNodeInTree();
    // One variable per tag, in the list's order, up to a null entry.
    void CreateNewVar(QList<void*>& tags);
    int CheckAndSetDataSet(void* container, std::string name);
    int CheckAndSetTrans(void* container, std::string name);
    int CheckAndSetNextTrans(void* container);
    bool ChangemaxICC(int newValue, int oldValue);
    bool ChangemaxDS(int newValue, int oldValue);
    // A limit edited in the property tree: key "maxICC" or "maxDS", the new
    // and the old text; a refused value goes back to the unit ob.
    void UpdLimitProp(void* ob, const char* key, const QString& newText, const QString& oldText);
    void CreateICC(int number);

    // Validation of tags against the model.
    // Tag titles without an object, variable keys with theirs: what the
    // last check found out of place.
    StringList ListNoValid;
    // The tree's rows by text while a whole check runs; null otherwise.
    class TagRowIndex* TagRows = nullptr;
    // Marks the rows that the tag's key names: 0 found, -1 no usable key,
    // -2 the last segment not found.
    int FunTagAndTree(void* tag);
    void FillListNoValid(void* tag);
    // Deletes the listed variables from the model and their data sets, then
    // rebuilds the tree.
    void DelElemsTree(StringList& list);
    // Whether the key names a variable, or a member path of a structure.
    bool IsValidTagId(class DcVCC* vcc, std::string key);
    // Data set members and tag keys under the ICC oldName: renamed to
    // newName, or, with rename 0, removed (members) or emptied (keys).
    void InspectADSonLD(std::string oldName, std::string newName, int rename);
    void InspDSonLD(std::string oldName, std::string newName, class DcDataSet* ds, int rename);
    void InspectATagonLD(std::string oldName, std::string newName, int rename);
    // Takes the variable out of the data sets that its refDS names.
    void TreatRefDSinOb(DcICCPBase* ob);
    int FindDuplicates(DcICCPBase* ob);
    // Fills the reserve list with copies of the ICCs' transfer and data sets.
    void FillSpecListDSansTS(class DcVCC* vcc);

    // Tag folders and tags of the unit.
    void DeleteTagOrFolder(void* ob);
    void DeleteFromTagFolder(void* folder);
    void DeleteFromTag(void* tag);
    void DeleteVarFromtIED(void* tag);
    // A property of a tag or of the unit edited in the property tree: node
    // holds the new value, old the previous one; the model follows the key.
    void UpdPropTagUnit(CpropNode* node, QString old, void* ob, char* key);
    // Adds the tags below unit that have a key to pListTag, keeping the
    // highest number after "Noname" in maxNoname; the list's size.
    int FillListBTag(void* unit, int& maxNoname);
    // Binding of tags and variables.
    bool TagValid4Bind();
    bool IedObValid4Bind();
    void BindDAandTag(class DcDA*& var, void*& tag);
    void FreeTag(std::string key);
    // The number of free tags among the rows; 0 when one is bound.
    int CheckValid4NewICCP(QList<QModelIndex>& tags);
    bool CreateInTreeTags(QList<QModelIndex>& tags, StringList& vars);
    // A row in the tree for a variable made from the tags.
    void Tags2TaseTree(QList<void*> tags, int isDO, DcICCPBase* var);

    // Moving and bulk change.
    // The members of the content list go to data set newDs, a 0-based
    // position, of the same owner; their tags take newDs.
    void ChangeDsOnly(int newDomain, int newDs, QList<DcICCPBase*>* obs);
    // The members go to another owner, and to data set newDs there.
    void ChangeDomainAndDs(int newDomain, int newDs, int oldDomain, int oldDs,
                           QList<DcICCPBase*>* obs);

    // Renaming: each routine carries a new name through the copies that its
    // kind of object has; oldFull and newFull come back as the full names.
    QAction* actRename = nullptr; // "Переименовать" in the tVIed menu, key F2
    void AddRenameAct();
    void RenameDA1(std::string oldName, DcICCPBase* ob, std::string& oldFull, std::string& newFull);
    void RenameDO(std::string oldName, class DcDO* ob, std::string& oldFull, std::string& newFull);
    void RenameLD(std::string oldName, QModelIndex index, class DcLD* ld);
    void RenameDS(std::string oldName, QModelIndex index, class DcDataSet* ds);
    void CorrTagAfterRenDA(std::string& oldFull, std::string& newFull);
    void CorrTagAfterRenDO(std::string& oldFull, std::string& newFull);
    // Kept without a caller.
    void RenameVCC(std::string oldName, QModelIndex index, class DcVCC* vcc);
    void RenameDA(std::string oldName, class DcDA* da);

    // Deleting.
    // Deletes the unit of the current row of lW_ieds after a question; the
    // only row is refused.
    void DelFromUnits();
    // Takes the member entry `name` out of each data set of the VCC and of
    // its ICCs.
    void DelElemsFromDS(std::string name, class DcVCC* vcc);
    // An older delete of the tree's selection, kept without a caller: the
    // selection is never taken, so it ends at once. The members below serve
    // it.
    void DelFromtVIed();
    // The object of one row, by its class; the row itself stays.
    void DeleteOb(const QModelIndex& index);
    // A variable's row: the variable goes, its tag keys are freed and its
    // entries leave the data sets.
    void DeleteDOorDA(const QModelIndex& index);
    // The variable out of its owner's list and deleted; key is its full name,
    // keys those of a structure's members.
    void DeleteDA(class DcDA* var, std::string& key);
    void DeleteDO(class DcDO* var, std::string& key, StringList& keys);
    // The member that a row under a data set row stands for leaves the set.
    void DeleteElemDS(const QModelIndex& index, const QModelIndex& parent);
    // Empty.
    void TryDelDS(const QModelIndex& index);

signals:
    void sigShowStat(QString text);

public slots:
    void OnLoadFile();
    void OnSaveIed();
    void OnUpDTTP();
    // "Пользовательские данные" of the tags menu: no work behind it.
    void OnShowUserTypes();
    // Kept from older routes of the form; no control is connected to them.
    void OnShowSCL();
    void UpdateUnit();
    void OntVTagsContMenu(const QPoint& pos);
    void OnContMenuVIed(const QPoint& pos);
    void slotShowStat(QString text);
    void onFilterAct(QObject* ob);
    void onFilterOb(QObject* ob, int n);
    void onItemSelectionChanged();

    // Navigation between the panes.
    void OnlW_UnitClicked(QListWidgetItem* item);
    void OntVTagsClick(const QModelIndex& index);
    void OntVIedClicked(const QModelIndex& index);
    void SetTagModeView(QAction* action);
    void OncurrentItemChangedDS(QListWidgetItem* current, QListWidgetItem* previous);
    void OnItemDoubleClicked(QListWidgetItem* item);
    void slotShowType();
    // A property of the host object node was edited.
    void OnExtUpd(void* node);
    void ShowError(int code, QString caption); // a value refused by the host, on the status bar
    // A drop on the member list: the dragged variables join the current set.
    void slotOnRecvData();

    // Tag folders and tags of the unit.
    void OnCreateFolg();
    void OnCreateTag();
    void OnCreateTagInFld();
    void OnDelTag();
    void OnDelTags();
    // Deletes the selected rows of tVTags after a question.
    void DelFromtVTags();
    // Deletes the selected rows of tVTags at once.
    void DeleteFromtVTags();
    // Binding of tags and variables.
    void OnBindTag();
    void OnCreateVarICCP();
    void slotFindinTag();
    void OnFindTree();

    // "Корректность тегов": marks what the unit's tags name and offers to
    // delete the variables that none names.
    void OnValTagTree();

    // Creating variables and containers.
    void OnAddVar();
    // Kept without a control: an ICC by name, a data set that no list takes.
    void OnAddLD();
    void OnAddDS();

    // Puts the selected variables of tVIed into a data set picked in a dialog.
    void OnAddOb2DS();

    // A data set, a transfer set or the Next_DSTransfer_Set object, of the
    // class, name and place picked in the object choice dialog; no control.
    void OnAddOb();
    // A command variable, with its SBO twin, added to the ICC of the current
    // tree row.
    void OnAcmd();

    // Moving and bulk change.
    // "Переместить объект(ы) ": the selected members of the shown data set
    // go where the dialog says.
    void MoveOb_ContDS();
    // "DataSet&TransSet": the reserve list in its viewer.
    void onShowReservDSList();
    // Renames the object of the current row of tVIed to a name asked for.
    void OnRename();

    // Deleting.
    // Dispatches by the widget with the focus: the unit list, the tag view,
    // the model tree, the member list; elsewhere nothing happens.
    void OnDelOb();
    // The selected variables of tVIed go with their tags, without a question;
    // the variable objects stay in their owners' lists.
    void DeleteFromiedTree();
    // The selected rows of lWInfo_2 leave the current data set; variables
    // and tags stay.
    void DeleteFromContentRefDS();
    // A structure of the model was deleted: its member entry leaves a data
    // set of its ICC (of the VCC for a null host).
    void OnRemoveObFromDS(void* host, std::string name, void* tag);
    // No control is connected to these two.
    void OnDelObFromDS();
    void OnDelTaseFld();

protected:
    bool event(QEvent* e) override;
    void showEvent(QShowEvent* e) override;
    void closeEvent(QCloseEvent* e) override;
    void keyPressEvent(QKeyEvent* e) override;

private:
    // The constructor's steps, in the order it runs them.
    void CreateModels();
    void CreateBars();
    void CreateMenuBar();
    void SetViewStyles();
    void ConnectModelViews();
    void InstallMouseFilters();
    void SetSelectionModes();
    void CreateMenuFile();
    void FillInfoAct();
    void SetTagsManipulate();
    void CreateSomeMenu();
    void FillEditAct();
    // Puts the blob text on the unit; tells on the status bar when the host
    // refuses it.
    void PutBlob(void* unit, const QByteArray& bytes);
    // Rows of lWInfo for every data set, the VCC's first, then each ICC's.
    void FillDSList();
};
