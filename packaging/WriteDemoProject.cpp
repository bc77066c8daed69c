// Writes the built-in demo project as a project file, for the package.
#include "host/DemoProject.h"
#include "host/ProjectFile.h"

#include <cstdio>

int main(int argc, char** argv) {
    if (argc != 2) {
        fputs("usage: write-demo-project OUT.json\n", stderr);
        return 2;
    }
    HostProject project;
    BuildDemoProject(project);
    QString error;
    if (SaveProject(project, QString::fromLocal8Bit(argv[1]), &error))
        return 0;
    fprintf(stderr, "write-demo-project: %s\n", qPrintable(error));
    return 1;
}
