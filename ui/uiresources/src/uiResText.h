// UiResText: a resource holding a list of strings ("Text"), and the token reader of the text
// forms of resources.
#pragma once

#include "uiResource.h"

#include <string>
#include <vector>

namespace Zr {

// XML: one <Text> element per string. Text: tokens, each a word or a double-quoted phrase.
class UiResText : public UiResource {
public:
    explicit UiResText(LiString const& name = {}, char const* text = nullptr);
    UiResText(UiResText const&) = default;
    ~UiResText() override = default;

    char const* getType() const override { return "Text"; }
    void read(XmlElement const& element) override;
    void read(std::istream& is) override;
    void write(XmlWriter& writer, bool flag) const override;
    // Each string after one blank. An empty string, one holding white space or one starting
    // with a quote is quoted: as writeToken does when `flag` is true, as \"text\" when false,
    // so that the result can itself stand inside a quoted string.
    void write(std::ostream& os, bool flag) const override;
    ZR_UI_RESOURCE_CLONE(UiResText)

    int getNbStrings() const { return static_cast<int>(_strings.size()); }
    // The string at `index`; an index out of range fails an assertion.
    char const* getString(int index) const;
    // Appends the text, repaired like what is read (toValidUtf8).
    void append(char const* text);
    void removeAll() { _strings.clear(); }
    std::vector<LiString> const& getStrings() const { return _strings; }

    // The text with each malformed UTF-8 sequence replaced by U+FFFD: names and labels read
    // from files are always valid UTF-8.
    static std::string toValidUtf8(std::string text);
    // Reads the next token: a word up to the next blank, or a phrase between double quotes in
    // which \" stands for a quote and \\ for a backslash (any other backslash is kept as it
    // is). false at the end of the stream.
    static bool readToken(std::istream& is, std::string& token);
    // Writes `text` so that readToken gives it back: as it stands when it is a plain word, else
    // between double quotes with its quotes and backslashes escaped.
    static void writeToken(std::ostream& os, std::string const& text);
    // Whether writeToken has to quote `text`.
    static bool needsQuotes(std::string const& text);

private:
    std::vector<LiString> _strings;
};

} // namespace Zr
