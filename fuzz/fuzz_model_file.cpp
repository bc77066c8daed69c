// Bytes as a model file loaded into the open form ("Загрузка файла"), then
// rendered as the close renders it. Each input starts from the template's
// model; the one that the file's model replaces is freed here, so leaks show.
#include "FuzzForm.h"

#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"

#include <QFile>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static SmallProject p;
    static void* form = OpenAndClose(p);
    FCfgArvenSR->ClearICCP();
    FCfgArvenSR->loadFromTemplate();
    QFile file("model.blt");
    if (!form || !file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        __builtin_trap();
    file.write(reinterpret_cast<const char*>(data), qint64(size));
    file.close();
    DcVCC* templ = pVCC;
    QString error;
    FCfgArvenSR->LoadFile(file.fileName(), error);
    needemit = false;
    if (pVCC != templ)
        delete templ;
    needemit = true;
    FCfgArvenSR->TekVCC2XMLList();
    HostLoopTurn();
    return 0;
}
