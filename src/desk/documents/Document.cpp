#include "desk/documents/Document.h"

#include <filesystem>

#include "desk/documents/ElementReader.h"
#include "desk/documents/ElementWriter.h"
#include "desk/files/Files.h"
#include "desk/files/ReplacingFile.h"
#include "desk/json/JsonWriter.h"
#include "desk/json/ParsedJson.h"
#include "host/Failure.h"

namespace desk {

namespace {

constexpr const char* kFormat = "desk document";
constexpr int kVersion = 1;

[[noreturn]] void Fail(const std::string& path, const std::string& sentence) {
    host::Failure failure(host::kFailureUnspecified, "desk::Document", sentence);
    failure.AddFact("file", path);
    throw failure;
}

void CheckParsed(simdjson::error_code error, const std::string& path) {
    if (error == simdjson::SUCCESS) return;
    if (error == simdjson::MEMALLOC || error == simdjson::CAPACITY)
        Fail(path, "The file \"" + path + "\" is too large to be read.");
    if (error == simdjson::DEPTH_ERROR)
        Fail(path,
             "The file \"" + path + "\" is damaged: its values stand too deep inside one another.");
    if (error == simdjson::UTF8_ERROR)
        Fail(path, "The file \"" + path + "\" is damaged: it holds text that is not UTF-8.");
    Fail(path, "The file \"" + path + "\" is damaged: it is not JSON as a whole.");
}

void CheckFormat(simdjson::dom::element root, const JsonNode& top, const std::string& path) {
    std::string_view format;
    if (root["format"].get(format) != simdjson::SUCCESS || format != kFormat)
        Fail(path, "The file \"" + path + "\" is no document of the desk.");
    const auto version = top.Member("version").Whole(1);
    if (version <= kVersion) return;
    Fail(path, "The file \"" + path + "\" is written in version " + std::to_string(version) +
                   " of the document format, of which this program knows versions up to " +
                   std::to_string(kVersion) + ".");
}

double SheetSide(const JsonNode& node) {
    return node.NumberIn(kSmallestSheet, kLargestSheet, "a number of inches");
}

std::string OptionalText(const JsonNode& node, std::string_view key) {
    const auto member = node.Optional(key);
    return member ? std::string(member->Text()) : std::string();
}

void ReadPage(const JsonNode& node, const std::shared_ptr<TextEngine>& engine, Document& document) {
    document.pageWidth = SheetSide(node.Member("width"));
    document.pageHeight = SheetSide(node.Member("height"));
    const auto elements = node.Member("elements");
    elements.Each([&](const JsonNode& element) {
        document.elements.push_back(ReadElement(element, engine));
    });
}

void WriteText(JsonWriter& writer, const Document& document) {
    writer.BeginObject();
    writer.Member("format", kFormat);
    writer.Member("version", kVersion);
    writer.Member("title", document.title);
    if (!document.mapBook.empty()) writer.Member("mapBook", document.mapBook);
    if (!document.templateKey.empty()) writer.Member("template", document.templateKey);
    if (!document.locale.empty()) writer.Member("locale", document.locale);
    if (document.firstSheet != 0) writer.Member("firstSheet", document.firstSheet);
    writer.Key("page");
    writer.BeginObject();
    writer.Member("width", document.pageWidth);
    writer.Member("height", document.pageHeight);
    writer.Key("elements");
    writer.BeginArray();
    for (const auto& element : document.elements) {
        writer.NewLine();
        WriteElement(writer, element);
    }
    writer.EndArray();
    writer.EndObject();
    writer.EndObject();
    writer.Finish();
}

}  // namespace

Document ReadDocument(const std::string& path, const std::shared_ptr<TextEngine>& engine,
                      FileState* state) {
    const ParsedJson parsed(ReadWholeFile(path, state));
    CheckParsed(parsed.Error(), path);
    const JsonSource source{path, "The file \"" + path + "\" is damaged", " at "};
    const JsonNode top(parsed.Root(), source);
    CheckFormat(parsed.Root(), top, path);

    Document document;
    document.title = top.Member("title").Text();
    document.mapBook = OptionalText(top, "mapBook");
    document.templateKey = OptionalText(top, "template");
    document.locale = OptionalText(top, "locale");
    if (const auto first = top.Optional("firstSheet")) document.firstSheet = first->Whole(1);
    ReadPage(top.Member("page"), engine, document);
    return document;
}

FileState WriteDocument(const Document& document, const std::string& path,
                        const std::optional<FileState>& expected) {
    ReplacingFile file(path);
    JsonWriter writer([&](std::string_view text) { file.Write(text); });
    try {
        WriteText(writer, document);
    } catch (const host::Failure& failure) {
        Fail(path, "The document \"" + path + "\" cannot be saved: " + failure.description + ".");
    }
    return file.Commit(expected);
}

std::string MapBookPath(const Document& document, const std::string& documentPath) {
    if (document.mapBook.empty()) return {};
    const auto path = std::filesystem::path(documentPath).parent_path() / document.mapBook;
    // Messages show the path, and a way up from the working folder is hard to read.
    auto step = path.begin();
    if (*step != "..") return path.string();
    auto whole = std::filesystem::current_path();
    for (; step != path.end() && *step == ".."; ++step) whole = whole.parent_path();
    for (; step != path.end(); ++step) whole /= *step;
    return whole.string();
}

std::string PathFromDocument(const std::string& path, const std::string& documentPath) {
    namespace fs = std::filesystem;
    return fs::proximate(path, fs::absolute(documentPath).parent_path()).string();
}

}  // namespace desk
