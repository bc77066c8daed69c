// The unit's tag folders: making folders and tags in the host, and what an
// edited tag property changes in the model tree. The form's members that
// delete tags and folders live beside these in TagFolders.cpp.
#pragma once

#include "plugin/cfgInterface.h"

#include <QString>

// Makes a folder of `kind` named `name` under `parent`; false when a sibling
// of that kind has the name already or the host refuses.
bool CreateSecFlg(void* parent, TCfgObjectType kind, QString& name);
// The folder named `name` inside the first folder of `kind` under `parent`,
// made there when absent; null when `parent` has no such folder.
void* CreateOrTakeFlg4DS(void* parent, TCfgObjectType kind, QString& name);
// The base folder of a tag mode 0 to 3, made when the unit has none; null
// for other modes.
void* GetFolger(void* unit, TCfgObjectType mode);
// A new tag of `kind` under `parent` whose key is the kind's default caption.
void* CreateTag(void* parent, TCfgObjectType& kind);
// Writes the binding key of a tag.
void Settag_id(void* tag, QString id);

// The tag's base name changed: the first tree row of the old variable name
// takes the new one, and so does its variable.
void Changetag_name(QString newName, QString oldName, void* tag);
// The tag's caption changed: its variable takes it as its description.
void Changetag_caption(QString newCaption, QString oldCaption, void* tag);
