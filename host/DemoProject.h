// The built-in demo project: a direction with one line and two ICCP server
// units, tag folders of the four kinds with sub-folders, and some forty tags.
#pragma once

#include "host/HostProject.h"

// Replaces the project's objects with the demo.
void BuildDemoProject(HostProject& project);
