// Texts nested past what a model holds are refused before TinyXML recurses.
#include "model/XmlText.h"

#include <gtest/gtest.h>

TEST(DeepInput, NestingIsBoundedBeforeParsing) {
    const auto nested = [](int depth, const QByteArray& open, const QByteArray& close) {
        return "<?xml version=\"1.0\"?>" + open.repeated(depth) + close.repeated(depth);
    };
    const struct {
        QByteArray text;
        bool parses;
    } cases[] = {
        {nested(100000, "<a>", "</a>"), false},
        {nested(100000, "<a x=\"1\">", "</a>"), false},
        {nested(kMaxXmlDepth + 1, "<a>", "</a>"), false},
        {nested(kMaxXmlDepth, "<a>", "</a>"), true},
        // Empty elements, comments and quoted ">" or "<" nest nothing.
        {"<r>" + QByteArray("<a/>").repeated(100000) + "</r>", true},
        {"<r>" + QByteArray("<!-- <a> -->").repeated(1000) + "<b v=\"<c>\"/></r>", true},
        {"<r>" + QByteArray("<![CDATA[<a>]]>").repeated(1000) + "</r>", true},
    };
    for (const auto& c : cases) {
        TiXmlDocument document;
        ParseXmlText(document, c.text.constData(), TIXML_ENCODING_UTF8);
        EXPECT_EQ(!document.Error(), c.parses) << c.text.left(60).constData();
    }
}
