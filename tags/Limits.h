// Free functions of the unit's limits and of the select-before-operate twin.
#pragma once

#include <string>

class StringList;
class myNodeValue;

// A row value named name + "_SBO" that carries the tag, when the tag's
// "presentSBO" is an int of at least 1; null otherwise.
myNodeValue* NewNode4SBO(void* tag, std::string name);
// Refills GlobVarMem with the entries of src, texts and objects; the new
// count. An empty src leaves GlobVarMem as it is and gives 0.
int FillGlobVarMem(StringList* src);
