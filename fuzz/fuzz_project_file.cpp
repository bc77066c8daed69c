// Bytes as a project file of the stand-in host. What was read must be
// written and read back to the same text.
#include "host/ProjectFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    HostProject project, again;
    if (!ProjectFromJson(project, QByteArray(reinterpret_cast<const char*>(data), int(size))))
        return 0;
    const QByteArray written = ProjectToJson(project);
    if (!ProjectFromJson(again, written) || ProjectToJson(again) != written)
        __builtin_trap();
    return 0;
}
