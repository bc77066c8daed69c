// Arbitrary bytes through the whole road of a model text: TinyXML parse,
// the template and model readers, validation, structure completion, data set
// binding, the tree fill, and both writers. The text the writers give is read
// and written once more, since the element forms it holds (transfer sets with
// members, template members with every attribute) are not all in the seeds.
// Everything is freed after each input so that leaks show.
#include <cstddef>
#include <cstdint>
#include <string>

#include "tests/xml/ModelRoad.h"

namespace {

// Reads text and renders what was read; the text of both writers when a
// model was made, else empty.
QString ReadAndWrite(const std::string& text) {
    myNode* tree = nullptr;
    QString written;
    if (ReadModelText(text, &tree) && pVCC) {
        written = pVCC->ToXML(2);
        pVCC->ToCSV(0);
        if (pDcDTTP)
            written += pDcDTTP->ToXML(2);
    }
    ClearModel(tree);
    return written;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    PrepareModelTables();
    const QString written = ReadAndWrite(std::string(reinterpret_cast<const char*>(data), size));
    if (!written.isEmpty())
        ReadAndWrite(FrameModelText(written));
    return 0;
}
