#include "model/DcNextTransferSet.h"

#include "model/DcDA.h"
#include "model/DcLD.h"
#include "model/DcTransSet.h"
#include "support/MyBuf.h"

DcNextTransferSet::DcNextTransferSet(QObject* parent) : DcDO(parent) {
    ObType = TabDcObCode("DcNextTransferSet");
    name = "Next_DSTransfer_Set";
}

DcNextTransferSet::~DcNextTransferSet() = default;

QString DcNextTransferSet::ClassName() {
    return "DcNextTransferSet";
}

bool DcNextTransferSet::SetAttFromStr(const std::string& attribute, const std::string& value) {
    if (attribute == "name")
        name = value;
    return true;
}

QString DcNextTransferSet::ToXML(int indent) {
    return QString(qMax(indent, 0), ' ') + "<DcNextTransferSet name = \"" + LocalToQ(name) + "\" " +
           "/>\r\n";
}

void DcNextTransferSet::InitVar() {
    // This Scope is an INT8, unlike the UINT8 of a transfer set's DataSetName.
    if (CreateDcDA("INT8", "Scope", "") < 0)
        return;
    if (CreateDcDA("VISIBLE_STRING32", "DomainName", "") < 0)
        return;
    CreateDcDA("VISIBLE_STRING32", "Name", "");
}

bool DcNextTransferSet::FindFreeTS() {
    DcICCPBase* owner = OwnerOb();
    if (!owner || owner->ClassName() != "DcLD")
        return false;
    DcLD* ld = static_cast<DcLD*>(owner);
    for (int i = ld->TransSets.Count - 1; i >= 0; --i) {
        DcICCPBase* object = ListOb(ld->TransSets, i);
        if (!object || object->ClassName() != "DcTransSet")
            continue;
        DcTransSet* set = static_cast<DcTransSet*>(object);
        if (set->Used)
            continue;
        set->Used = true;
        PutVar("Scope", "1");
        PutVar("DomainName", ld->name);
        PutVar("Name", set->name);
        CurName = set->name;
        DcICCPBase* rbe = ListOb(set->Members, set->Members.IndexOf("RBE"));
        if (rbe && rbe->ClassName() == "DcDA") {
            MyBufValue* value = static_cast<DcDA*>(rbe)->Value;
            if (value && value->Buf && value->Len > 0)
                value->Buf[0] = 1;
            set->RBE = true;
        }
        return true;
    }
    return false;
}
