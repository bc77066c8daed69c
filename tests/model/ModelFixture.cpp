#include "ModelFixture.h"

#include "support/MyBuf.h"
#include "support/myNode.h"

const char* const kModelTypes =
    "<DcTemplate>"
    "<DcDAType idtype=\"10\" type=\"INT16\" defname=\"I16\" size=\"2\" unused=\"0\" value=\"0\"/>"
    "<DcDAType idtype=\"11\" type=\"INT32\" size=\"4\" unused=\"0\" value=\"0\"/>"
    "<DcDAType idtype=\"12\" type=\"INT8\" size=\"1\" unused=\"0\" value=\"0\"/>"
    "<DcDAType idtype=\"13\" type=\"UINT8\" size=\"1\" unused=\"0\" value=\"0\"/>"
    "<DcDAType idtype=\"14\" type=\"VISIBLE_STRING32\" size=\"32\" unused=\"0\" value=\"Str\"/>"
    "<DcDAType idtype=\"15\" type=\"Data_Real\" size=\"4\" unused=\"-1\" value=\"-10.000\"/>"
    "<DcDAType idtype=\"16\" type=\"Data_Flags\" size=\"1\" unused=\"0\" value=\"00000000\"/>"
    "<DcDAType idtype=\"17\" type=\"BitString12\" size=\"2\" unused=\"4\" senum=\"a,b\" "
    "value=\"110000000000\"/>"
    "<DcDAType idtype=\"18\" type=\"Data_TimeStamp\" size=\"4\" unused=\"-1\" value=\"\"/>"
    "<DcDAType idtype=\"19\" type=\"BitString5\" size=\"1\" unused=\"3\" value=\"00100\"/>"
    "<DcDAType idtype=\"20\" type=\"BOOL\" size=\"1\" unused=\"0\" value=\"false\"/>"
    "<DcDAType idtype=\"21\" type=\"BitString\" size=\"1\" unused=\"4\" value=\"0010\"/>"
    "<DcDOType idtype=\"1\" type=\"Data_RealQ\" defname=\"RealQ\">"
    "<DcDA name=\"Value\" type=\"Data_Real\"/><DcDA name=\"Flags\" type=\"Data_Flags\"/>"
    "</DcDOType>"
    "<DcDOType idtype=\"2\" type=\"Data_RealQTimeTag\" defname=\"RealQT\">"
    "<DcDO name=\"Q\" type=\"Data_RealQ\"/><DcDA name=\"TimeStamp\" type=\"Data_TimeStamp\"/>"
    "</DcDOType>"
    "</DcTemplate>";

void LogRecorder::Listen(DcICCPBase* object) {
    QObject::connect(object, &DcICCPBase::Put2SLog, [this](QString text) { texts << text; });
}

std::string ValueOf(DcDA* variable) {
    return variable && variable->Value ? variable->Value->Tostring() : std::string();
}

std::string ChildNames(myNode* node) {
    std::string names;
    for (myNode* child = node ? node->FirstChild : nullptr; child; child = child->Next)
        names += (names.empty() ? "" : ",") + child->name;
    return names;
}
