// String helpers: number formatting, substitution, component-name checks (LiStringUtil), a
// tokenizer for quoted phrases (LiStringParser), a table of text patterns (LiStringSubstituter)
// and conversions between wide strings and UTF-8 (WideStringUtil).
#pragma once

#include <istream>
#include <map>
#include <string>

namespace Zr {

class LiStringUtil {
public:
    // The shortest text that reads back to the same double: 1 -> "1", 0.5 -> "0.5",
    // 0.1 -> "0.1", 1e21 -> "1e+21".
    static std::string convertNb(double value);
    static std::string convertNb(int value);

    // Replaces every occurrence of `from`, left to right, without rescanning replaced text.
    // An empty `from` leaves the text alone.
    static std::string substitute(std::string const& text, std::string const& from,
                                  std::string const& to);
    // ASCII letters only; other bytes, UTF-8 included, pass unchanged.
    static std::string toLowerCase(std::string const& text);
    static std::string trimLeadingSpaces(std::string const& text);

    // Component names hold letters, digits and '_' and do not start with a digit.
    static char getReplacementChar() { return '_'; }
    // Replaces each character that a component name may not hold (each whole UTF-8 sequence
    // counts as one) with getReplacementChar(), puts a '_' before a leading digit, and makes
    // an empty name "_". The result always passes checkComponentNameValidity.
    static std::string sanitizeComponentName(std::string const& name);
    static std::string sanitise(std::string const& name) { return sanitizeComponentName(name); }
    static bool checkComponentNameValidity(std::string const& name);
};

class LiStringParser {
public:
    // Skips blanks, then reads a word up to the next blank, or a phrase between two `quote`
    // characters in which \<quote> and \\ stand for the quote and the backslash (any other
    // backslash is kept). An unterminated phrase runs to the end. Returns "" at the end.
    static std::string readToken(std::istream& is, char quote = '"');
    // The same, telling the end of the stream apart from an empty quoted phrase.
    static bool readToken(std::istream& is, std::string& token, char quote = '"');
};

// A set of patterns, each with its replacement, applied together to a text.
class LiStringSubstituter {
public:
    // Registering a pattern again replaces its replacement; an empty pattern is ignored.
    void registerPattern(std::string const& pattern, std::string const& replacement);
    // Returns false when the pattern was not registered.
    bool unregisterPattern(std::string const& pattern);
    bool hasPattern(std::string const& pattern) const { return _patterns.count(pattern) != 0; }
    int getNbPatterns() const { return static_cast<int>(_patterns.size()); }

    // One pass from left to right: where several patterns match, the longest wins; replaced
    // text is not scanned again, so a replacement may contain a pattern.
    std::string substitute(std::string const& text) const;

private:
    std::map<std::string, std::string> _patterns;
};

class WideStringUtil {
public:
    // What narrowReplace puts for a character outside ASCII unless told otherwise.
    static char _defaultReplaceChar;

    // UTF-8. A lone surrogate or a value beyond U+10FFFF becomes U+FFFD.
    static std::string narrowMB(std::wstring const& text);
    // ASCII only: every other character becomes `replace`.
    static std::string narrowReplace(std::wstring const& text, char replace);
    static std::string narrowReplace(std::wstring const& text) {
        return narrowReplace(text, _defaultReplaceChar);
    }
    // From UTF-8; each malformed sequence becomes U+FFFD.
    static std::wstring widen(std::string const& utf8);
    // Appends one code point in UTF-8; a lone surrogate or a value beyond U+10FFFF becomes
    // U+FFFD.
    static void appendUtf8(std::string& out, char32_t c);
};

} // namespace Zr
