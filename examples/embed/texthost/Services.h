#pragma once

#include <cctype>
#include <charconv>
#include <cstdio>

#include "Values.h"

/// Locale, expressions and dialogs.
namespace texthost {

/// English as far as ASCII goes; a real host asks the system's collation.
class Locale : public host::IHostLocale {
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
        for (std::size_t at = 0; at < text.size(); ++at) {
            if (!lengths.empty() && Continues(text.substr(at)))
                ++lengths.back();
            else
                lengths.push_back(1);
        }
        return lengths;
    }

private:
    /// Within a character, or the first byte of a mark from U+0300 to U+036F on the one before.
    static bool Continues(std::string_view rest) {
        const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(rest[i]); };
        if ((byte(0) & 0xC0U) == 0x80) return true;
        return byte(0) == 0xCC || (byte(0) == 0xCD && rest.size() > 1 && byte(1) < 0xB0);
    }
};

/// Fields in brackets, and the tokens that it is given values for.
class ExpressionEngine : public host::CVNExpressionEngine {
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

}  // namespace texthost
