// The typing of a variable's value from its template.
#include "model/DcBaseTypes.h"
#include "model/DcDA.h"
#include "model/DcTemplates.h"
#include "support/MyBuf.h"
#include "support/StrUtils.h"

namespace {

// No ICCP value comes near this; a template asking for more gets no buffer.
const int MaxValueSize = 65535;

} // namespace

MyBufValue::MyBufValue(DcDA* da) {
    SetbType(da);
}

int MyBufValue::SetbType(DcDA* da) {
    Owner = da;
    if (!da)
        return -1;
    DcDAType* templ = da->Template;
    std::string typeName = templ ? templ->type : da->type;
    if (typeName.empty())
        return -1;
    int row = FindDAType2(DATypes, 0, DATypesCount - 1, Str2Upper(typeName).c_str());
    // Without a template there is no size to type the value with.
    if (row < 0 || !templ)
        return bType;

    bType = DATypes[row].id;
    int unusedCount = templ->unused < 0 ? 0 : templ->unused;
    Flags |= 4;
    UnusedBits = static_cast<unsigned char>(unusedCount);
    da->unused = unusedCount;
    Size = templ->size;
    da->ByteCount = templ->size;
    if (Size < 0 || Size > MaxValueSize)
        Size = 0;

    if (Size != 0) {
        // A buffer that has the size already keeps its bytes.
        if (!Buf || Capacity != Size)
            ReallocBuf(Size);
        Capacity = Len = Size;
    }
    if (bType == 10) {
        Size = DATypes[row].size;
        ReallocBuf(Size);
        if (Len > Capacity)
            Len = Capacity;
    } else if (bType == 9 || bType == 12 || bType == 13 || bType == 14) {
        UnusedBits = static_cast<unsigned char>(templ->unused);
        Names = templ->senum;
    }
    return bType;
}
