// Loading of the golden texts and a comparison that names the first line
// where a produced text parts from the expected one.
#pragma once

#include <QString>
#include <gtest/gtest.h>
#include <string>

#include "ModelRoad.h"

// Bytes of a file of the golden directory.
inline std::string Golden(const char* name) {
    return ReadWholeFile(QString(ICCP_GOLDEN_DIR "/") + name);
}

// CR, LF and tab made visible, so that line ends show in a failure message.
inline std::string ShowControls(const std::string& text) {
    std::string out;
    for (char c : text) {
        if (c == '\r')
            out += "\\r";
        else if (c == '\n')
            out += "\\n";
        else if (c == '\t')
            out += "\\t";
        else
            out += c;
    }
    return out;
}

// Success when the texts are equal byte for byte; otherwise the number of the
// first line (counted at LF) that differs and both versions of it.
inline testing::AssertionResult SameText(const std::string& expected, const QString& produced) {
    const std::string actual = produced.toStdString();
    if (actual == expected)
        return testing::AssertionSuccess();
    size_t start = 0;
    int line = 1;
    while (true) {
        size_t endE = expected.find('\n', start);
        size_t endA = actual.find('\n', start);
        std::string e = expected.substr(start, endE == std::string::npos ? endE : endE + 1 - start);
        std::string a = actual.substr(start, endA == std::string::npos ? endA : endA + 1 - start);
        if (e != a || endE == std::string::npos || endA == std::string::npos)
            return testing::AssertionFailure()
                   << "first difference at line " << line << "\n  expected: \"" << ShowControls(e)
                   << "\"\n  produced: \"" << ShowControls(a) << "\"";
        start = endE + 1;
        ++line;
    }
}

// Each test reads its model into the globals and frees it afterwards.
class ModelText : public testing::Test {
protected:
    void SetUp() override {
        PrepareModelTables();
        ClearModel(tree);
    }
    void TearDown() override { ClearModel(tree); }

    // Replaces the model by the one read from text.
    bool Load(const std::string& text) {
        ClearModel(tree);
        return ReadModelText(text, &tree);
    }

    myNode* tree = nullptr;
};
