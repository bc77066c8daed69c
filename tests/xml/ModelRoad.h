// A model text into memory as the form loads it, and back out; also for fuzz and bench.
#pragma once

#include <QFile>
#include <QTextCodec>
#include <string>
#include <tinyxml.h>

#include "model/ICCPTypes_Nat.h"
#include "model/XmlText.h"
#include "support/myNode.h"

// The type tables sorted once per process as the form does; locale UTF-8.
inline void PrepareModelTables() {
    static bool done = false;
    if (done)
        return;
    done = true;
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    FillCompareType();
    SortDATypes();
    SecTypesAToUp();
    SortSecondaryTypes();
}

// Bytes of a file or a resource; empty when it can't be opened.
inline std::string ReadWholeFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::string();
    return file.readAll().toStdString();
}

// Reads text into pDcDTTP, pVCC and *tree; false, nothing read, when it doesn't parse.
inline bool ReadModelText(const std::string& text, myNode** tree) {
    *tree = nullptr;
    TiXmlDocument doc;
    ParseXmlText(doc, text.c_str(), TIXML_ENCODING_UTF8);
    if (doc.Error())
        return false;
    FindAndRakeDTTPFromStr(&doc, &pDcDTTP);
    RakeNode1(&doc);
    if (!pVCC)
        return true;
    *tree = new myNode(pVCC->name, pVCC);
    if (pDcDTTP)
        pDcDTTP->ValidVar();
    pVCC->BornDO();
    pVCC->SetReletion();
    pVCC->FillmyNode(*tree);
    return true;
}

// Frees the tree and the model as the clearing flow does, without signals.
inline void ClearModel(myNode*& tree) {
    needemit = false;
    if (tree)
        tree->DeleteSubTree();
    tree = nullptr;
    delete pVCC;
    pVCC = nullptr;
    delete pDcDTTP;
    pDcDTTP = nullptr;
}

// The frame that the form puts around the writers' output.
inline std::string FrameModelText(const QString& body) {
    return "<?xml version = \"1.0\" ?>\r\n"
           "<xsd:schema xmlns:xsd = \"http://www.w3.org/2001/XMLSchema\">\r\n"
           "<DcTree>\r\n" +
           body.toStdString() + "</DcTree>\r\n</xsd:schema>\r\n";
}
