// A tag's "domain", "isinDataSet" or "tag_type" changed: its variable moves
// to the new owner, to the new data set, or is rebuilt with the new type.
// The tag already holds the new value when these run.
#pragma once

void Changedomain(int newDomain, int oldDomain, void* tag);
void Changedsnum(int newDs, int oldDs, void* tag);
void Changedtype(int newType, int oldType, void* tag);
