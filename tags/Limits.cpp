// The unit's limits maxICC and maxDS as they reach the model, and the
// select-before-operate twin of a tag.
#include "tags/Limits.h"

#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/CfgIecArvenlib.h"
#include "plugin/HostWall.h"
#include "support/myNode.h"
#include "tags/ConsistencyPass.h"
#include "views/SomeModelsIED.h"

#include <QAction>
#include <QMenu>
#include <QMessageBox>
#include <algorithm>

// The number of ICCs only grows, and never below one.
bool CfgArvenSR::ChangemaxICC(int newValue, int oldValue) {
    if (newValue > std::max(oldValue, 1)) {
        ICCdata.maxICC = newValue;
        CheckLD();
        return true;
    }
    QMessageBox::information(nullptr, "информация", "Следует операцию выполить на основной форме");
    return false;
}

// Any value is taken; a smaller one removes nothing.
bool CfgArvenSR::ChangemaxDS(int newValue, int) {
    ICCdata.maxDS = newValue;
    AdDs();
    return true;
}

void CfgArvenSR::UpdLimitProp(void* ob, const char* key, const QString& newText,
                              const QString& oldText) {
    const bool icc = qstrcmp(key, "maxICC") == 0;
    if (!icc && qstrcmp(key, "maxDS") != 0)
        return;
    bool newOk = false, oldOk = false;
    const int newValue = newText.toInt(&newOk);
    const int oldValue = oldText.toInt(&oldOk);
    if (!newOk || !oldOk || newValue == (icc ? ICCdata.maxICC : ICCdata.maxDS))
        return;
    const bool done = icc ? ChangemaxICC(newValue, oldValue) : ChangemaxDS(newValue, oldValue);
    if (!done)
        SetIntProp(ob, key, oldValue);
    // The whole form follows the unit again.
    if (QListWidgetItem* item = lW_ieds->currentItem())
        emit lW_ieds->itemClicked(item);
}

void CfgArvenSR::CreateICC(int number) {
    if (!pVCC || !pTreeIedModel)
        return;
    const QModelIndex folder = ICCFolderIndex(pTreeIedModel);
    myNode* node = BornICCWithSets(number);
    if (folder.isValid()) {
        myNode* folderNode = pTreeIedModel->nodeFromIndex(folder);
        const int row = folderNode->GetChildCount();
        pTreeIedModel->beginInsertRows(folder, row, row);
        folderNode->AddChild(node);
        pTreeIedModel->endInsertRows();
    } else {
        node->DeleteSubTree();
    }
    auto del = new QAction(ImageIcon("DELETE"), "Удалить Объект", this);
    MenuIed->addAction(del);
    connect(del, SIGNAL(triggered()), this, SLOT(OnDelOb()));
    auto add = new QAction("Добавить переменную", this);
    connect(add, SIGNAL(triggered()), this, SLOT(OnAddVar()));
}

myNodeValue* NewNode4SBO(void* tag, std::string name) {
    int sbo = 0;
    if (!GetIntProp(tag, "presentSBO", sbo) || sbo < 1)
        return nullptr;
    return new myNodeValue(name + "_SBO", tag);
}

int FillGlobVarMem(StringList* src) {
    if (!src || src->Count == 0)
        return 0;
    GlobVarMem.Clear();
    for (int i = 0; i < src->Count; ++i)
        GlobVarMem.AddObject(src->Strings(i), src->Objects(i));
    return GlobVarMem.Count;
}
