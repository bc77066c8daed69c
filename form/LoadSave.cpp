// How a model comes into the form and leaves it: the built-in template, the
// file commands, the blob "$DATARUN", and the clearing of a model.
#include "form/CfgIecArven.h"

#include "model/ICCPTypes_Nat.h"
#include "model/XmlText.h"
#include "plugin/CfgIecArvenlib.h"
#include "plugin/HostWall.h"
#include "plugin/cfgCalls.h"
#include "support/JoinedText.h"
#include "support/StrUtils.h"
#include "support/myNode.h"
#include "views/PropModel.h"
#include "views/SomeModelsIED.h"
#include "views/ViewModel.h"

#include <QCloseEvent>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>
#include <QPixmapCache>
#include <QSet>
#include <QStatusBar>
#include <QTextCodec>
#include <QTextStream>
#include <tinyxml.h>

QStringList set1DS;
std::vector<void*> Stack1;

void Fillset1DS() {
    set1DS = QStringList{"DSConditions_Detected", "Event_Code_Detected", "Transfer_Set_Time_Stamp",
                         "Transfer_Set_Name"};
}

namespace {

const char* const RemovedSignal = SIGNAL(RemoveObFromDS(void*, std::string, void*));
const char* const RemovedSlot = SLOT(OnRemoveObFromDS(void*, std::string, void*));

// "Сохранение ..." and "Загрузка ..." start in a folder named like the
// current directory, below it.
QString StartDir() {
    return QDir(QDir::currentPath()).dirName();
}

} // namespace

int CfgArvenSR::loadFromTemplate() {
    QFile file(":/Templ");
    if (file.open(QIODevice::ReadOnly))
        Filecont = file.readAll();
    TiXmlDocument document;
    ParseXmlText(document, Filecont.constData(), TIXML_ENCODING_UTF8);
    if (document.Error())
        return 1;
    ParseToTree(document);
    ++TemplLoads;
    if (pVCC)
        connect(pVCC, RemovedSignal, this, RemovedSlot);
    needemit = true;
    return 0;
}

void CfgArvenSR::ParseToTree(TiXmlDocument& document) {
    FindAndRakeDTTPFromStr(&document, &pDcDTTP);
    RakeNode1(&document);
    if (!pVCC)
        return;
    auto node = new myNode(pVCC->name, pVCC);
    // A document without templates leaves none to validate.
    if (pDcDTTP)
        pDcDTTP->ValidVar();
    pVCC->BornDO();
    pVCC->SetReletion();
    pVCC->FillmyNode(node);
    if (!pTreeIedModel) {
        pTreeIedModel = new IEDTreeModel(this);
        connect(pTreeIedModel, SIGNAL(sigShowStat(QString)), this, SLOT(slotShowStat(QString)));
    }
    pTreeIedModel->setRootNode(node);
    tVIed->expandAll();
    SetViewModel(tVIed, pTreeIedModel);
    tVIed->setVisible(true);
    UpDateFullDSList();
}

void CfgArvenSR::OnLoadFile() {
    const QString path =
        QFileDialog::getOpenFileName(this, "Загрузка файла", StartDir(), "*.xml;;*.blt;;*.*");
    if (path.isEmpty())
        return;
    QString error;
    if (LoadFile(path, error) >= 1)
        statusBar->showMessage("Ошибка чтения SCL файла: " + error, 2000);
}

int CfgArvenSR::LoadFile(const QString& path, QString& error) {
    Filecont.clear();
    QFile file(path);
    if (file.exists() && file.open(QIODevice::ReadOnly)) {
        Filecont = file.readAll();
        file.close();
    }
    if (Filecont.isEmpty()) {
        error = "Ошибка чтения файла";
        return 1;
    }
    const QString text = QString::fromUtf8(Filecont.constData());
    Filecont = text.toLocal8Bit();
    TiXmlDocument document;
    if (!LoadXmlFile(document, path)) {
        error = "failed load tinyxml:" + text;
        return 1;
    }
    // The old model isn't cleared: the file's model takes its place on
    // screen, the templates already read stay.
    ParseToTree(document);
    return 0;
}

void CfgArvenSR::OnSaveIed() {
    QString path = QFileDialog::getSaveFileName(this, "Сохранение описания устройства", StartDir(),
                                                "*.blt ;; *.*");
    if (path.isEmpty())
        return;
    TekVCC2XMLList();
    Write2SCLFile(XmlList, path);
    // The CSV table goes beside a ".blt" file; everything behind ".blt" is
    // dropped from its name.
    const int blt = path.indexOf(".blt");
    QString csvPath = blt > 0 ? path.left(blt) + ".csv" : QString();
    const QString csv = pVCC ? pVCC->ToCSV(0) : QString();
    XmlList = SplitLines(csv);
    // Written after the model, so the blob holds the CSV lines until the
    // close writes the model again.
    Write2SCLFile(XmlList, csvPath);
}

void CfgArvenSR::OnUpDTTP() {
    const QString path =
        QFileDialog::getOpenFileName(this, "Выбор нового файла с DTTP", QString(), "*.xml;;*.blt");
    if (path.isEmpty())
        return;
    QFile file(path);
    if (file.open(QIODevice::ReadOnly))
        Filecont = file.readAll();
    TiXmlDocument document;
    ParseXmlText(document, Filecont.constData(), TIXML_ENCODING_UTF8);
    if (document.Error()) {
        QMessageBox::information(this, "Предупреждение", "Ошибка разбора XML");
        return;
    }
    // A set left here by an earlier run is the current one by now.
    pDcDTTPnew = nullptr;
    FindAndRakeDTTPFromStr(&document, &pDcDTTPnew);
    if (!pDcDTTPnew) {
        QMessageBox::information(this, "Предупреждение", "По - видимому ошибка разбора DTTP");
        return;
    }
    if (QMessageBox::question(this, "Напоминание", "Сделать резервную копию ?",
                              QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes)
        OnSaveIed();
    // The variables keep their old templates, which are gone from here on:
    // the tree isn't rebuilt.
    delete pDcDTTP;
    pDcDTTP = pDcDTTPnew;
    ++TemplLoads;
}

namespace {

// The model is rendered only where the text read holds a model followed by
// its templates: then true, with the rendered text written to body.
// Otherwise false, with the lines of the text read in lines (none without a
// model).
bool RenderModel(QStringList& lines, JoinedText& body) {
    lines.clear();
    const QString text = QString::fromLatin1(Filecont.constData());
    if (!pVCC || !pDcDTTP)
        return false;
    lines = SplitLines(text);
    int vcc = -1;
    for (int i = 0; i < lines.size() && vcc < 0; ++i)
        if (lines[i].contains("<DcVCC"))
            vcc = i;
    if (vcc < 0)
        return false;
    bool templates = false;
    for (int i = vcc + 1; i < lines.size() && !templates; ++i)
        templates = lines[i].contains("</DcTemplate>");
    if (!templates)
        return false;
    lines.clear();
    pVCC->WriteXML(2, body);
    pDcDTTP->WriteXML(2, body);
    return true;
}

// The lines before and after a rendered model.
QStringList HeadLines() {
    const QString schema = "http://www.w3.org/2001/XMLSchema";
    const QString instance = "http://www.w3.org/2001/XMLSchema-instance";
    return {"<?xml version = \"1.0\" ?>",
            "<!--<DcDesc  xmlns:xsi = \"" + instance + "\" xmlns:xsd = \"" + schema + "\" > -->",
            "<xsd:schema xmlns:xsd = \"" + schema + "\">", "<DcTree>"};
}

QStringList FootLines() {
    return {"</DcTree>", "</xsd:schema>"};
}

} // namespace

void CfgArvenSR::TekVCC2XMLList() {
    JoinedText body;
    if (!RenderModel(XmlList, body))
        return;
    XmlList = HeadLines() + SplitLines(body.Text()) + FootLines();
}

void CfgArvenSR::PutBlob(void* unit, const QByteArray& bytes) {
    if (!SetTextProp(unit, "$DATARUN", bytes))
        statusBar->showMessage("Неудачная запись в блоб-поле");
}

void CfgArvenSR::Write2CFG(void* unit) {
    // The text of the lines that TekVCC2XMLList makes, joined by LF, without
    // the lines: a large model's text goes to UTF-8 piece by piece.
    JoinedText text(true);
    text += HeadLines().join("\n") + '\n';
    if (!RenderModel(XmlList, text)) {
        PutBlob(unit, XmlList.join("\n").toUtf8());
        return;
    }
    text += '\n' + FootLines().join("\n");
    PutBlob(unit, text.Utf8());
}

void CfgArvenSR::Write2SCLFile(QStringList& lines, QString& path) {
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::WriteOnly | QIODevice::Text | QIODevice::Truncate))
        return;
    const QString joined = lines.join("\n");
    // The file's own encoding chain: the reader of these files undoes it.
    // ASCII passes unchanged.
    const QString windows = QTextCodec::codecForName("Windows-1251")->toUnicode(joined.toUtf8());
    const QByteArray utf8 = QTextCodec::codecForName("UTF-8")->fromUnicode(windows);
    QTextStream stream(&file);
    stream << QString::fromLatin1(utf8.constData());
    stream.flush();
    file.close();

    QListWidgetItem* current = lW_ieds->currentItem();
    if (!current)
        return;
    PutBlob(current->data(Qt::UserRole).value<void*>(), joined.toLocal8Bit());
}

void CfgArvenSR::ClearICCP() {
    SetViewModel(tVProp, nullptr);
    SetViewModel(tVIed, nullptr);
    if (myNode* root = pPropIccp->rootNode) {
        pPropIccp->setRootNode(nullptr);
        root->DeleteSubTree();
    }
    // Deleting the tree model frees its whole node tree.
    if (pVCC) {
        delete pVCC;
        pVCC = nullptr;
    }
    if (pDcDTTP) {
        delete pDcDTTP;
        pDcDTTP = nullptr;
    }
    delete pTreeIedModel;
    pTreeIedModel = nullptr;
}

// The tree rows stay: the VCC's mandatory variables keep theirs, and the
// template's folders hold no rows of ICC variables.
void CfgArvenSR::ClearNodeByStr(QString) {
    if (!pVCC)
        return;
    static const std::string kept[] = {"TASE2_Version", "Supported_Features", "Bilateral_Table_ID"};
    StringList& vars = pVCC->Vars;
    for (int i = vars.Count - 1; i >= 0; --i) {
        const std::string name = vars.Strings(i);
        if (name == kept[0] || name == kept[1] || name == kept[2])
            continue;
        // The entry goes first, so that a variable that takes its own entry
        // away on deletion finds none.
        DcICCPBase* object = ListOb(vars, i);
        vars.Delete(i);
        delete object;
    }
    for (int i = 0; i < pVCC->ICCs.Count; ++i)
        if (auto icc = qobject_cast<DcLD*>(ListOb(pVCC->ICCs, i)))
            DeleteListObjects(icc->Vars);
}

void CfgArvenSR::ClearDS() {
    // The walk steps on after a deletion as well: of two neighbouring
    // foreign members the second stays.
    ForEachDataSetList([](StringList& dataSets) {
        for (int d = 0; d < dataSets.Count; ++d) {
            auto dataSet = qobject_cast<DcDataSet*>(ListOb(dataSets, d));
            if (!dataSet)
                continue;
            for (int i = 0; i < dataSet->Elems.Count; ++i)
                if (!set1DS.contains(LocalToQ(dataSet->Elems.Strings(i))))
                    dataSet->Elems.Delete(i);
        }
    });
}

void CfgArvenSR::GetElemByFolder(int kind, QList<void*>& list) {
    // The set answers "already listed?" for the list, which may come in
    // filled by earlier kinds.
    QSet<void*> listed(list.begin(), list.end());
    while (!Stack1.empty()) {
        void* ob = Stack1.back();
        Stack1.pop_back();
        for (void* folder : GetChildren(ob, kind + 8))
            if (cfgObType(folder) == kind + 8)
                Stack1.push_back(folder);
        for (void* tag : GetChildren(ob, kind))
            if (cfgObType(tag) == kind && !listed.contains(tag)) {
                listed.insert(tag);
                list.append(tag);
            }
    }
}

void CfgArvenSR::closeEvent(QCloseEvent* e) {
    SaveSettings();
    if (CurUnit) {
        if (!Filecont.isEmpty())
            Write2CFG(CurUnit);
        SetViewModel(tVIed, nullptr);
        if (pVCC)
            disconnect(pVCC, RemovedSignal, this, RemovedSlot);
        needemit = false;
    }
    // Style-sheeted headers are painted with a new palette every time, and
    // the style caches each painting under that palette's key: what this
    // run painted would stay in the cache until it is full.
    QPixmapCache::clear();
    // The close isn't vetoed: the model and its tree stay for the next run.
    QDialog::closeEvent(e);
}
