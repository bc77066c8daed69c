// Thin wrappers over the host's table: object kinds, parameter reads and
// writes, and the three renderers of a parameter value. The renderers differ
// on purpose; each has its callers that depend on its texts.
#pragma once

#include "plugin/cfgInterface.h"

#include <QByteArray>
#include <QString>
#include <string>

// Results of GetQByteArrfromObProb and SetQByteArrToObProb.
enum TBlobResult { blobOk = 0, blobNotText = 1, blobNoParam = 2, blobEmpty = 3, blobFailed = 4 };

int GetTypeObject(void* ob);
// Kind below 4.
bool IsTag(void* ob);
// Kind above 7.
bool IsFlg(void* ob);
// "source", "f_source", ... for tags and folders; empty for the rest.
QString GetStrType(TCfgObjectType kind);
// "tagSource", ... for the four tag kinds; empty for the rest.
QString GetDefCaption(TCfgObjectType kind);

// Reads an int parameter; false, with `out` untouched, when the read fails or
// the value isn't an int.
bool GetIntProp(void* ob, const char* name, int& out);
bool SetIntProp(void* ob, const char* name, int value);
// Reads a text parameter into `out`; false when the read fails or the value
// isn't a text.
bool GetTextProp(void* ob, const char* name, std::string& out);
// Writes the bytes as a text parameter by name, the length without a
// terminating zero. Returns the host's result.
bool SetTextProp(void* ob, const char* name, const QByteArray& bytes);

// Reads a parameter by name and renders it; " " when the read fails.
QString GetPropStrVal(void* ob, const QString& name);
// True with `out` set for a boolean parameter; false with `out` untouched
// when the read fails or the parameter isn't boolean.
bool GetPropBool(void* ob, const QString& name, bool& out);
// Writes text as UTF-8 by the parameter's index, sending the terminating zero
// in the length. Returns the host's result.
bool SetStr2PropOb(void* ob, const char* name, const QString& text);
// A view over the host's bytes of a text parameter, valid until the next host
// call; a TBlobResult.
int GetQByteArrfromObProb(void* ob, const char* name, QByteArray& out);
// Writes bytes as a text parameter, the terminating zero counted in the
// length; a TBlobResult (blobOk, blobNoParam or blobFailed).
int SetQByteArrToObProb(void* ob, const char* name, const QByteArray& in);

// Renders for diagnostics: "Undef" for no type, Latin-1 texts, 6 digits.
QString GetParamValAsStr(const cfgParamValue& value);
// Renders for titles and the property tree: "Unknow", UTF-8 texts, 5 digits.
QString cfgParamValueToQString(const cfgParamValue& value);

// Asks the host for the count of tags and drops it.
QString GetTagListInfo(void* ob);
