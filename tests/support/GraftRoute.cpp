#include "GraftRoute.h"

#include "Encode.h"

namespace support {
namespace {

Operations That(Asks asks) {
    return OperationsIf(GeneratorOperations(),
                        [asks](const Operation& operation) { return operation.asks == asks; });
}

std::wstring UnitsOf(const std::string& bytes) {
    std::wstring text;
    for (size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto low = static_cast<unsigned char>(bytes[i]);
        const auto high = static_cast<unsigned char>(bytes[i + 1]);
        text += static_cast<wchar_t>(low | high << 8);
    }
    return text;
}

}  // namespace

const Operations& AllGraftRoutes() {
    static const Operations routes = Joined({That(Asks::kLoad), GraftsOnly()});
    return routes;
}

const Operations& GraftsOnly() {
    static const Operations routes = That(Asks::kGraft);
    return routes;
}

const Operations& FileRoutes() {
    static const Operations routes = OperationsIf(AllGraftRoutes(), ReadsFile);
    return routes;
}

const Operations& TextRoutes() {
    static const Operations routes =
        OperationsIf(AllGraftRoutes(), [](const Operation& route) { return !ReadsFile(route); });
    return routes;
}

bool ReadsFile(const Operation& route) { return route.Takes(parameters::kFileName); }

int BadSourceResult(const Operation& route) { return ReadsFile(route) ? -3 : 0; }

GraftSource::GraftSource(const Operation& route, const std::wstring& json) {
    if (ReadsFile(route))
        file = std::make_unique<TempFile>(Encode(json, Encoding::kUtf8));
    else
        text = json;
}

GraftSource::GraftSource(const Operation& route, const std::string& bytes) {
    if (ReadsFile(route))
        file = std::make_unique<TempFile>(bytes);
    else
        text = UnitsOf(bytes);
}

const wchar_t* GraftSource::Argument() const { return file ? file->Name() : text.c_str(); }

bool GraftSource::IsClosed() const { return !file || file->IsClosed(); }

}  // namespace support
