#include "Documents.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <numeric>
#include <random>
#include <stdexcept>

#include "Text.h"

namespace bench {
namespace {

namespace fs = std::filesystem;

constexpr const wchar_t* kWords[] = {L"Customer", L"Line", L"Total",   L"HarbourName",
                                     L"Berth",    L"Crew", L"Skipper", L"Departure"};
constexpr size_t kWordCount = std::size(kWords);

/// Shape of canada: deep arrays of pairs of long fractions.
std::string Coordinates() {
    std::mt19937 random(1);
    std::string text = "{\"type\":\"FeatureCollection\",\"coordinates\":[";
    char pair[64];
    for (int ring = 0; ring < 480; ++ring) {
        text += ring ? ",[" : "[";
        for (int point = 0; point < 116; ++point) {
            const double x = -60.0 - random() % 70000000 / 1e6;
            const double y = 41.0 + random() % 40000000 / 1e6;
            std::snprintf(pair, sizeof pair, "%s[%.15f,%.15f]", point ? "," : "", x, y);
            text += pair;
        }
        text += "]";
    }
    return text + "]}";
}

/// Shape of citm_catalog: indented, small objects, numbers as keys, many repeated names.
std::string Catalogue() {
    std::mt19937 random(2);
    std::string text = "{\n    \"performances\": [";
    for (int i = 0; i < 2600; ++i) {
        text += i ? ",\n        {" : "\n        {";
        text += "\n            \"eventId\": " + std::to_string(138586341 + i);
        text += ",\n            \"logo\": null,\n            \"name\": null";
        text += ",\n            \"prices\": [";
        for (int p = 0; p < 4; ++p) {
            text += p ? ",\n                {" : "\n                {";
            text += "\n                    \"amount\": " + std::to_string(random() % 200000);
            text += ",\n                    \"seatCategoryId\": " + std::to_string(338937235 + p);
            text += "\n                }";
        }
        text += "\n            ],\n            \"start\": " + std::to_string(1372701600 + i);
        text += ",\n            \"venueCode\": \"PLEYEL_PLEYEL\"\n        }";
    }
    return text + "\n    ]\n}";
}

/// Shape of twitter: objects of many members, short and long texts beyond ASCII, large integers.
std::string Messages() {
    std::mt19937 random(3);
    std::string text = "{\"statuses\":[";
    for (int i = 0; i < 400; ++i) {
        text += i ? ",{" : "{";
        text += "\"id\":" + std::to_string(505874924095815681u + random());
        text += ",\"text\":\"\u540D\u524D:\u524D\u7530\u3042\u3086\u307F \\n\\\"";
        for (unsigned words = random() % 12; words-- > 0;) text += " \u6E2F\u306E\u8239 harbour";
        text += "\",\"truncated\":false,\"in_reply_to\":null,\"user\":{\"id\":";
        text += std::to_string(random()) + ",\"name\":\"\u00C6r\u00F8\",\"screen_name\":\"berth";
        text += std::to_string(i) + "\",\"verified\":true,\"urls\":[\"http://t.example/" +
                std::to_string(random()) + "\"]";
        for (int m = 0; m < 24; ++m)
            text += ",\"profile_setting_" + std::to_string(m) + "\":" + std::to_string(m * 37);
        text += "},\"retweet_count\":" + std::to_string(i % 50) + "}";
    }
    return text + "]}";
}

std::string FileBytes(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("cannot read " + path.string());
    return {std::istreambuf_iterator<char>(file), {}};
}

Document Named(const std::string& name, std::string bytes) {
    Document document;
    document.name = name;
    document.utf8 = std::move(bytes);
    document.text = Converter().Wide(document.utf8);
    document.file = TemporaryFile(L"json_bench_" + std::wstring(name.begin(), name.end()));
    std::ofstream file(fs::path(document.file), std::ios::binary);
    file.write(document.utf8.data(), static_cast<std::streamsize>(document.utf8.size()));
    return document;
}

}  // namespace

const std::vector<Document>& LargeDocuments() {
    static const std::vector<Document> documents = [] {
        std::vector<Document> all;
        if (const wchar_t* folder = _wgetenv(L"JSON_TEST_DATA")) {
            for (const char* name : {"canada", "citm_catalog", "twitter"})
                all.push_back(
                    Named(name, FileBytes(fs::path(folder) / (std::string(name) + ".json"))));
        } else {
            all.push_back(Named("coordinates", Coordinates()));
            all.push_back(Named("catalogue", Catalogue()));
            all.push_back(Named("messages", Messages()));
        }
        return all;
    }();
    return documents;
}

std::wstring Key(size_t number) {
    std::wstring key = kWords[number % kWordCount];
    key += L'_';
    for (size_t rest = number / kWordCount + 1; rest > 0; rest /= 26)
        key += static_cast<wchar_t>(L'a' + rest % 26);
    return key;
}

size_t KeyNumber(const std::wstring& key) {
    const size_t end = key.find(L'_');
    size_t rest = 0;
    for (size_t at = key.size(); --at > end;)
        rest = 26 * rest + static_cast<size_t>(key[at] - L'a');
    const auto* word = std::find(kWords, kWords + kWordCount, key.substr(0, end));
    return (rest - 1) * kWordCount + static_cast<size_t>(word - kWords);
}

std::vector<std::wstring> ShuffledKeys(size_t first, size_t last, size_t most) {
    std::vector<uint32_t> numbers(last - first);
    std::iota(numbers.begin(), numbers.end(), static_cast<uint32_t>(first));
    std::shuffle(numbers.begin(), numbers.end(), std::mt19937(20));
    numbers.resize(std::min(numbers.size(), most));
    std::vector<std::wstring> keys;
    for (const uint32_t number : numbers) keys.push_back(Key(number));
    return keys;
}

std::wstring ObjectText(size_t count, const wchar_t* fraction) {
    std::wstring text = L"{";
    for (size_t i = 0; i < count; ++i) {
        if (i) text += L',';
        text += L"\"" + Key(i) + L"\":" + std::to_wstring(i) + fraction;
    }
    return text + L"}";
}

std::wstring TemporaryFile(const std::wstring& name) {
    return (fs::temp_directory_path() / name).wstring();
}

}  // namespace bench
