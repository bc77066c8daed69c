// Bytes as a unit's "$DATARUN" and its tags, through the form's opening and
// close, which must write the model. Line 1 holds "maxICC maxDS", each other
// line a tag "kind;tag_type;domain;isinDataSet;tag_name;tag_id;caption".
#include "FuzzForm.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), int(size));
    const QList<QByteArray> lines = bytes.split('\n');
    SmallProject p;
    p.unit->set("maxICC", lines[0].split(' ').value(0).toInt() % 8);
    p.unit->set("maxDS", lines[0].split(' ').value(1).toInt() % 8);
    p.unit->set("$DATARUN", bytes);
    for (const QByteArray& line : lines.mid(1)) {
        const QList<QByteArray> f = line.split(';');
        const int kind = int(f[0].toUInt() % 4);
        p.addTag(p.folder[kind], kind, f.value(4), f.value(1).toInt(), f.value(2).toInt(),
                 f.value(3).toInt(), QString::fromUtf8(f.value(6)))
            ->set("tag_id", f.value(5));
    }
    if (!OpenAndClose(p) || !p.unit->get("$DATARUN").toByteArray().startsWith("<?xml"))
        __builtin_trap();
    return 0;
}
