#include "GraftRoute.h"

#include "Encode.h"

namespace support {
namespace {

using G = QXJSON::IJsonGenerator;
using A = GraftArguments;

std::vector<GraftRoute> MakeRoutes() {
    return {
        {"LoadJsonFile", GraftRoute::kNoParent, GraftRoute::kRoot, true,
         [](G& g, const A& a, uint32_t* h) { return g.LoadJsonFile(a.source, h); }},
        {"LoadJsonString", GraftRoute::kNoParent, GraftRoute::kRoot, false,
         [](G& g, const A& a, uint32_t* h) { return g.LoadJsonString(a.source, h); }},
        {"AddObjectItemJsonFileByPath", GraftRoute::kByPath, GraftRoute::kMember, true,
         [](G& g, const A& a, uint32_t* h) {
             return g.AddObjectItemJsonFileByPath(a.path, a.key, a.source, h);
         }},
        {"AddArrayItemJsonFileByPath", GraftRoute::kByPath, GraftRoute::kElement, true,
         [](G& g, const A& a, uint32_t* h) {
             return g.AddArrayItemJsonFileByPath(a.path, a.source, h);
         }},
        {"AddObjectItemJsonFile", GraftRoute::kByHandle, GraftRoute::kMember, true,
         [](G& g, const A& a, uint32_t* h) {
             return g.AddObjectItemJsonFile(a.parent, a.key, a.source, h);
         }},
        {"AddArrayItemJsonFile", GraftRoute::kByHandle, GraftRoute::kElement, true,
         [](G& g, const A& a, uint32_t* h) {
             return g.AddArrayItemJsonFile(a.parent, a.source, h);
         }},
        {"AddObjectItemJsonStringByPath", GraftRoute::kByPath, GraftRoute::kMember, false,
         [](G& g, const A& a, uint32_t* h) {
             return g.AddObjectItemJsonStringByPath(a.path, a.key, a.source, h);
         }},
        {"AddArrayItemJsonStringByPath", GraftRoute::kByPath, GraftRoute::kElement, false,
         [](G& g, const A& a, uint32_t* h) {
             return g.AddArrayItemJsonStringByPath(a.path, a.source, h);
         }},
        {"AddObjectItemJsonString", GraftRoute::kByHandle, GraftRoute::kMember, false,
         [](G& g, const A& a, uint32_t* h) {
             return g.AddObjectItemJsonString(a.parent, a.key, a.source, h);
         }},
        {"AddArrayItemJsonString", GraftRoute::kByHandle, GraftRoute::kElement, false,
         [](G& g, const A& a, uint32_t* h) {
             return g.AddArrayItemJsonString(a.parent, a.source, h);
         }},
    };
}

template <class Condition>
std::vector<GraftRoute> RoutesIf(Condition condition) {
    std::vector<GraftRoute> routes;
    for (const GraftRoute& route : AllGraftRoutes())
        if (condition(route)) routes.push_back(route);
    return routes;
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

std::ostream& operator<<(std::ostream& out, const GraftRoute& route) { return out << route.name; }

const std::vector<GraftRoute>& AllGraftRoutes() {
    static const std::vector<GraftRoute> routes = MakeRoutes();
    return routes;
}

const std::vector<GraftRoute>& GraftsOnly() {
    static const auto routes = RoutesIf([](const GraftRoute& route) { return route.IsGraft(); });
    return routes;
}

const std::vector<GraftRoute>& FileRoutes() {
    static const auto routes = RoutesIf([](const GraftRoute& route) { return route.fromFile; });
    return routes;
}

const std::vector<GraftRoute>& TextRoutes() {
    static const auto routes = RoutesIf([](const GraftRoute& route) { return !route.fromFile; });
    return routes;
}

bool operator==(const Grafted& a, const Grafted& b) {
    return a.result == b.result && a.handle == b.handle;
}

std::ostream& operator<<(std::ostream& out, const Grafted& grafted) {
    out << "result " << grafted.result;
    if (grafted.handle == kUnwrittenHandle) return out << " without a handle";
    return out << ", handle " << grafted.handle;
}

Grafted Graft(const GraftRoute& route, G& generator, const GraftArguments& arguments) {
    Grafted grafted;
    grafted.result =
        route.call(generator, arguments, arguments.hasOutput ? &grafted.handle : nullptr);
    return grafted;
}

GraftSource::GraftSource(const GraftRoute& route, const std::wstring& json) {
    if (route.fromFile)
        file = std::make_unique<TempFile>(Encode(json, Encoding::kUtf8));
    else
        text = json;
}

GraftSource::GraftSource(const GraftRoute& route, const std::string& bytes) {
    if (route.fromFile)
        file = std::make_unique<TempFile>(bytes);
    else
        text = UnitsOf(bytes);
}

const wchar_t* GraftSource::Argument() const { return file ? file->Name() : text.c_str(); }

bool GraftSource::IsClosed() const { return !file || file->IsClosed(); }

}  // namespace support
