// Free functions of variable creation: the default name of a type and the
// display trees of a variable for the value view. The members that turn tags
// into variables are declared with the form.
#pragma once

#include <string>

class DcDA;
class DcICCPBase;
class StringList;
class myNode;

// defname of a DcDAType or DcDOType; empty for anything else.
std::string GetDefFromType(DcICCPBase* type);
