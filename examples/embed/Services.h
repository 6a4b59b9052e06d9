#pragma once

#include <cctype>
#include <charconv>
#include <cstdio>

#include "Values.h"

/// Locale, expressions, dialogs, and a map book without books.
namespace texthost {

/// English as far as ASCII goes; a real host asks the system's collation.
class Locale final : public host::IHostLocale {
public:
    int CompareText(const std::string& text1, const std::string& text2) override {
        const int order = CollationKey(text1).compare(CollationKey(text2));
        return (order > 0) - (order < 0);
    }
    std::string CollationKey(const std::string& text) override {
        std::string key = text;
        for (char& c : key) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        return key;
    }
    std::optional<double> ParseNumber(const std::string& text) override {
        double value = 0;
        const char* const end = text.data() + text.size();
        const auto [stop, error] = std::from_chars(text.data(), end, value);
        if (error != std::errc() || stop != end) return std::nullopt;
        return value;
    }
    std::string FormatNumber(double value) override {
        char text[32];
        return {text, std::to_chars(text, text + sizeof(text), value).ptr};
    }
    std::vector<std::size_t> Characters(std::string_view text) override {
        std::vector<std::size_t> lengths;
        for (const char byte : text) {
            const bool continues = (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
            if (continues && !lengths.empty())
                ++lengths.back();
            else
                lengths.push_back(1);
        }
        return lengths;
    }
};

/// Fields in brackets, and the tokens that it is given values for.
class ExpressionEngine final : public host::CVNExpressionEngine {
public:
    bool IsValidExpression(const Ref<host::IHostTable>& table,
                           const std::string& expression) override {
        for (std::size_t at = 0; (at = expression.find('[', at)) != std::string::npos; ++at) {
            const auto end = expression.find(']', at);
            if (end == std::string::npos) return false;
            if (table->FindField(expression.substr(at + 1, end - at - 1)) < 0) return false;
        }
        return true;
    }
    std::string Evaluate(const Ref<host::IHostTable>& table, const Ref<host::IHostRow>& row,
                         const std::string& expression, const host::TokenValues& tokens) override {
        std::string text = expression;
        for (const auto& [name, value] : tokens) Replace(text, "$$" + name, Text(value));
        for (std::size_t at = 0; (at = text.find('[', at)) != std::string::npos;) {
            const auto end = text.find(']', at);
            const auto field = table->FindField(text.substr(at + 1, end - at - 1));
            const auto value = Text(row->Value(field));
            text.replace(at, end + 1 - at, value);
            at += value.size();
        }
        return text;
    }
    std::string EditExpression(const Ref<host::IHostTable>&, const std::string&,
                               const std::vector<host::TokenDescription>&) override {
        return {};
    }

private:
    static std::string Text(const host::Variant& value) {
        if (const auto* const text = std::get_if<std::string>(&value)) return *text;
        if (const auto* const number = std::get_if<std::int32_t>(&value))
            return std::to_string(*number);
        return {};
    }
    static void Replace(std::string& text, const std::string& token, const std::string& value) {
        for (std::size_t at = 0; (at = text.find(token, at)) != std::string::npos;
             at += value.size())
            text.replace(at, token.size(), value);
    }
};

/// The component's messages, and its failures, come here.
class Dialogs final : public host::IHostDialogs {
public:
    host::MessageAnswer MessageBox(const host::MessageBoxRequest& request) override {
        std::fprintf(stderr, "%s: %s\n", request.title.c_str(), request.text.c_str());
        return host::MessageAnswer::Ok;
    }
    std::optional<std::string> InputBox(const std::string&, const std::string&,
                                        const std::string&) override {
        return std::nullopt;
    }
    void Beep() override {}
};

class NoLayoutContext final : public host::CVNLayoutContext {
public:
    host::Variant CurrentTemplateKey() override { return {}; }
};

class NoMapBook final : public host::CVNMapBook {
public:
    std::string TemplateSection(const std::string&) override { None(); }
    std::string SectionBook(const std::string&) override { None(); }
    std::vector<std::string> SectionKeys(const std::string&) override { None(); }
    std::string SectionName(const std::string&) override { None(); }
    std::vector<std::string> TemplateKeys(const std::string&) override { None(); }
    std::string TemplateName(const std::string&) override { None(); }
    Ref<host::IHostObject> TemplateLayout(const std::string&) override { None(); }
    host::Variant SectionStartPage(const std::string&) override { None(); }
    std::vector<std::string> SectionPages(const std::string&) override { None(); }

private:
    [[noreturn]] static void None() { Fail("There is no map book."); }
};

class NoMapSeries final : public host::MapSeriesManager {
public:
    bool IsSeriesFrame(const Ref<host::IHostMapFrame>&) override { return false; }
    bool HasIndexLayer(const Ref<host::IHostMapFrame>&) override { return false; }
    void ClearFrame() override {}
    void SetFrame(const Ref<host::IHostMapFrame>&) override {}
    Ref<host::IHostIndexLayer> IndexLayer() override { return nullptr; }
    host::Variant FirstPageNumber() override { return 1; }
    Ref<host::IHostRow> PageFeature(std::int32_t) override { return nullptr; }
};

}  // namespace texthost
