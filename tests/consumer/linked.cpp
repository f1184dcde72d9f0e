// A host that links with the import library.

#include "Use.h"

int main() {
    return UseLibrary({CreateJsonParser, CreateJsonGenerator, CreateJsonPackageInterface}) ? 0 : 1;
}
