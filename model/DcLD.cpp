#include "model/DcLD.h"

#include <QStringBuilder>
#include <tinyxml.h>

#include "model/DcDA.h"
#include "model/DcDataSet.h"
#include "model/DcNextTransferSet.h"
#include "model/DcTransSet.h"
#include "model/DcVCC.h"
#include "support/JoinedText.h"
#include "support/myNode.h"

DcLD::DcLD(QObject* parent) : DcICCPBase(parent), NextSet(nullptr), RowBase{0, 0, 0, 0, 0} {
    ObType = TabDcObCode("DcLD");
    CanC = false;
}

DcLD::~DcLD() {
    DeleteListObjects(Vars);
    DeleteListObjects(TransSets);
    DeleteListObjects(DataSets);
    // NextSet goes with the QObject children.
}

QString DcLD::ClassName() {
    return "DcLD";
}

int DcLD::DecodeElement(TiXmlNode* node, const std::string& elementName) {
    if (elementName == "DcDO" || elementName == "DcDA") {
        DcICCPBase* var = ReadVariable(this, node, elementName);
        if (Vars.IndexOf(var->name) >= 0) {
            emit Put2SLog("error: LD " + Utf8ToQ(name) + " duplicate variable " +
                          Utf8ToQ(var->name));
            ++ErrCount;
        }
        Vars.AddObject(var->name, var, true);
    } else if (elementName == "DcDataSet") {
        DcDataSet* dataSet = new DcDataSet("", this);
        dataSet->DecodeXML(node);
        DataSets.AddObject(dataSet->name, dataSet, true);
    } else if (elementName == "DcTransSet") {
        DcTransSet* transSet = new DcTransSet("", false, this);
        transSet->DecodeXML(node);
        TransSets.AddObject(transSet->name, transSet, true);
    } else if (elementName == "DcNextTransferSet") {
        if (!NextSet) {
            DcNextTransferSet* next = new DcNextTransferSet(this);
            next->InitVar();
            NextSet = next;
            NextSets.AddObject(next->name, next, true);
        }
    }
    return 0;
}

bool DcLD::SetAttFromStr(const std::string& attribute, const std::string& value) {
    if (attribute == "name")
        name = value;
    else if (attribute == "desc")
        desc = value;
    else
        return false;
    return true;
}

QString DcLD::ToXML(int indent) {
    return WrittenXML(indent);
}

void DcLD::WriteXML(int indent, JoinedText& out) {
    QString blanks(indent, ' ');
    out +=
        blanks + "<DcLD  name = \"" + LocalToQ(name) + "\" desc=\"" + LocalToQ(desc) + "\" > \r\n";
    if (NextSet)
        out += blanks + "  <DcNextTransferSet name=\"Next_DSTransfer_Set\" /> \r\n";
    for (int i = 0; i < Vars.Count; ++i)
        if (DcICCPBase* var = ListOb(Vars, i))
            var->WriteXML(indent + 2, out);
    for (int i = 0; i < TransSets.Count; ++i)
        if (DcICCPBase* transSet = ListOb(TransSets, i))
            transSet->WriteXML(indent + 2, out);
    for (int i = 0; i < DataSets.Count; ++i) {
        DcDataSet* dataSet = qobject_cast<DcDataSet*>(ListOb(DataSets, i));
        if (dataSet && dataSet->Elems.Count > 0)
            dataSet->WriteXML(indent + 2, out);
    }
    out += blanks % "</DcLD> \r\n";
}

QString DcLD::ToCSV(int indent) {
    QString blanks(indent, ';');
    QString text = blanks + "ICC:(domain) ;" + Utf8ToQ(name) + "\r\n" + blanks +
                   QString::fromUtf8(";Переменные:; ObjectName; Type; Владелец;Описание\r\n");
    for (int i = 0; i < Vars.Count; ++i)
        if (DcICCPBase* var = ListOb(Vars, i))
            text += var->ToCSV(3);
    for (int i = 0; i < DataSets.Count; ++i)
        text += DataSetToCSV(ListOb(DataSets, i));
    if (NextSet)
        text += ";;Next Transfer Set: " + Utf8ToQ(NextSet->name) + "\r\n";
    for (int i = 0; i < TransSets.Count; ++i)
        if (DcICCPBase* transSet = ListOb(TransSets, i))
            text += ";;Data Set Transfer Set: " + Utf8ToQ(transSet->name);
    return text;
}

void DcLD::FillmyNode(myNode* node) {
    if (!node)
        return;
    for (int i = 0; i < NextSets.Count; ++i)
        if (DcICCPBase* next = ListOb(NextSets, i))
            node->AddChild(next->name, next);
    myNode* transNode = node->AddChild("Transfer_Sets", nullptr);
    myNode* dataSetsNode = node->AddChild("Наборы данных (DataSets)", nullptr);
    myNode* varsNode = node->AddChild("Переменные", nullptr);
    if (varsNode)
        AddVarNodes(Vars, varsNode, true);
    for (int i = 0; dataSetsNode && i < DataSets.Count; ++i)
        if (DcICCPBase* dataSet = ListOb(DataSets, i))
            dataSet->FillmyNode(dataSetsNode->AddChild(DataSets.Strings(i), dataSet));
    for (int i = 0; transNode && i < TransSets.Count; ++i)
        if (DcICCPBase* transSet = ListOb(TransSets, i)) {
            myNode* child = transNode->AddChild(TransSets.Strings(i), transSet);
            if (child && !transSet->Service)
                transSet->FillmyNode(child);
        }
    SetRowBase();
}

bool DcLD::IsExistNext() {
    return NextSet != nullptr;
}

DcICCPBase* DcLD::FindObject(const std::string& name) {
    for (StringList* list : {&TransSets, &NextSets, &Vars}) {
        int i = list->IndexOf(name);
        if (i >= 0)
            return ListOb(*list, i);
    }
    return nullptr;
}

StringList* DcLD::FindInd(const std::string& name, int& index) {
    struct {
        StringList* list;
        int base;
    } rows[] = {{&TransSets, 0}, {&NextSets, RowBase[0]}, {&Vars, RowBase[3]}};
    for (auto& row : rows) {
        int i = row.list->IndexOf(name);
        if (i >= 0) {
            index = i + row.base;
            return row.list;
        }
    }
    index = -1;
    return nullptr;
}

DcICCPBase* DcLD::GetObj(int i) {
    if (i < RowBase[0])
        return ListOb(TransSets, i);
    if (i < RowBase[3])
        return ListOb(NextSets, i - RowBase[0]);
    if (i < RowBase[4])
        return ListOb(Vars, i - RowBase[3]);
    return nullptr;
}

int DcLD::GetVar(const std::string& path, std::string& out) {
    return GetVarInList(Vars, path, out);
}

int DcLD::PutVar(const std::string& path, const std::string& text) {
    return PutVarInList(Vars, path, text);
}

void DcLD::InitVar4DS() {
    MakeServiceVars(this, Vars, "INT8", nullptr);
}

void DcLD::SetRowBase() {
    RowBase[0] = TransSets.Count;
    RowBase[1] = NextSets.Count;
    RowBase[2] = Vars.Count;
    RowBase[3] = RowBase[0] + RowBase[1];
    RowBase[4] = RowBase[3] + RowBase[2];
}
