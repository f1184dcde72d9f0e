// Makes a compiler lay out the tables of the three interfaces; check-slots reads the layout.

#include "Json_Dll.h"

struct ParserProbe : QXJSON::IJsonParser {
    ParserProbe();
};
struct GeneratorProbe : QXJSON::IJsonGenerator {
    GeneratorProbe();
};
struct PackageProbe : QXJSON::IJsonPackage {
    PackageProbe();
};

ParserProbe::ParserProbe() = default;
GeneratorProbe::GeneratorProbe() = default;
PackageProbe::PackageProbe() = default;
