// The tie between a tag and its variable: the tag's fields as one record,
// the variable's name made from them, and the search of its tree row.
#pragma once

#include <QModelIndex>
#include <QString>
#include <string>

class DcDataSet;
class QAbstractItemModel;
class DcICCPBase;
class StringList;

// One tag as the variable sees it.
struct TagData {
    int number = 0;
    int tag_type = 0;
    int domain = 0;      // 0: the VCC, n: the n-th ICC
    int isinDataSet = 0; // 0: none, n: the n-th data set of the domain
    std::string tag_name;
    std::string caption;
};

// The object of a row: role 256 of the index as a pointer.
void* RowObject(const QModelIndex& index);

// The tag's fields. A tag without a base name gets its type's default name,
// written to the host for good.
TagData GetTagData(void* tag);
// tag_name + "_" + number, without a default name; empty when the tag is
// null or either field can't be read.
std::string GetNamewNumberByTag(void* tag);
// The variable of the tag and its row of the model tree, found through the
// tag's domain and local name; the tree view moves to the row. Null when a
// field can't be read or a row is missing.
DcICCPBase* GetObTreeIedByTag(void* tag, QModelIndex& index, int& domain, std::string& localName);
// The container of a domain: the VCC for 0, else that ICC; null past the end
// of the ICC list.
DcICCPBase* DomainContainer(int domain);
// The variable list of the VCC or of an ICC; null for anything else.
StringList* VarsOf(DcICCPBase* container);
// The data set `number` (1-based) of the VCC or of an ICC; null when there
// is none.
DcDataSet* DataSetOf(DcICCPBase* container, int number);
// The "Переменные" row of the container in the model tree, and the row of
// its variable `name` under it; each step takes the first hit from the row
// found before. Invalid when a step finds nothing.
QModelIndex VarsFolderRow(QAbstractItemModel* model, DcICCPBase* container);
QModelIndex VarRowOf(QAbstractItemModel* model, DcICCPBase* container, const QString& name);
