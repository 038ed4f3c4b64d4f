// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "report/JsonReport.h"

#include <cctype>
#include <limits>

#include <gtest/gtest.h>

#include "report/JsonWriter.h"

namespace gcode_check {
namespace {

// Whether a text is JSON, by the grammar and nothing else.
class JsonReader {
public:
    explicit JsonReader(const std::string& text) : m_text(text) {}
    bool whole() { return value() && (blanks(), m_at == m_text.size()); }

private:
    void blanks() {
        while (m_at < m_text.size() && std::isspace(static_cast<unsigned char>(m_text[m_at]))) {
            ++m_at;
        }
    }
    bool take(char c) {
        blanks();
        const bool there = m_at < m_text.size() && m_text[m_at] == c;
        m_at += there ? 1U : 0U;
        return there;
    }
    bool word(const std::string& expected) {
        const bool there = m_text.compare(m_at, expected.size(), expected) == 0;
        m_at += there ? expected.size() : 0U;
        return there;
    }
    bool string() {
        if (!take('"')) {
            return false;
        }
        for (; m_at < m_text.size() && m_text[m_at] != '"'; ++m_at) {
            if (static_cast<unsigned char>(m_text[m_at]) < 0x20U) {
                return false;
            }
            m_at += m_text[m_at] == '\\' ? 1U : 0U;
        }
        return take('"');
    }
    bool number() {
        const std::size_t begin = m_at;
        while (m_at < m_text.size() &&
               std::string("+-.eE0123456789").find(m_text[m_at]) != std::string::npos) {
            ++m_at;
        }
        return m_at > begin;
    }
    bool member() { return string() && take(':') && value(); }
    template <typename Item>
    bool list(char end, Item&& item) {
        if (take(end)) {
            return true;
        }
        do {
            if (!item()) {
                return false;
            }
        } while (take(','));
        return take(end);
    }
    bool value() {
        blanks();
        if (m_at >= m_text.size()) {
            return false;
        }
        switch (m_text[m_at]) {
            case '{':
                ++m_at;
                return list('}', [this] { return member(); });
            case '[':
                ++m_at;
                return list(']', [this] { return value(); });
            case '"':
                return string();
            case 't':
                return word("true");
            case 'f':
                return word("false");
            case 'n':
                return word("null");
            default:
                return number();
        }
    }

    const std::string& m_text;
    std::size_t m_at = 0;
};

bool isJson(const std::string& text) {
    return JsonReader(text).whole();
}

CheckResult someResult() {
    Drawing drawing;
    Shape shape;
    shape.kind = ShapeKind::Circle;
    shape.radius = 5;
    shape.name = "a \"round\" \\ one\n";
    drawing.shapes = {shape};
    return check("M3 S6000\nG21\nG90\nG0 X0Y0\nG0 Z2\nG1 Z-1 F100\nG1 X30 F600\nSafe height\n", {},
                 &drawing);
}

TEST(JsonReport, IsJsonWithItsMembersInOrder) {
    const std::string text = jsonReport(someResult(), {"plate \"7\".nc", "tab\there"});
    EXPECT_TRUE(isJson(text)) << text;
    std::size_t at = 0;
    for (const char* member :
         {"\"version\": 2", "\"program\": \"plate \\\"7\\\".nc\"",
          "\"drawing\": \"tab\\u0009here\"", "\"unit\": \"mm\"", "\"lines\": 8", "\"stopLine\": 8",
          "\"surface\": 0", "\"surfaceGiven\": true", "\"errors\": 3",
          "\"warnings\": ", "\"notes\": 0", "\"leftOut\": {}", "\"findings\": [", "\"objects\": {",
          "\"figures\": {", "\"seconds\": "}) {
        const std::size_t next = text.find(member, at);
        ASSERT_NE(next, std::string::npos) << member << '\n' << text;
        at = next;
    }
    EXPECT_EQ(text.back(), '\n');
}

TEST(JsonReport, WithoutADrawingHasNoObjects) {
    const std::string text = jsonReport(check("G21\nM30\n"));
    EXPECT_TRUE(isJson(text)) << text;
    EXPECT_NE(text.find("\"objects\": null"), std::string::npos);
    EXPECT_NE(text.find("\"moves\": null"), std::string::npos);
    EXPECT_NE(text.find("\"identifier\": \"no-motion\""), std::string::npos);
    EXPECT_NE(jsonReport(check("G21\nG0 X1\nM30\n")).find("\"findings\": []"), std::string::npos);
}

// The text from the finding's identifier on, up to the next finding.
std::string findingIn(const std::string& report, const std::string& identifier) {
    const std::size_t begin = report.find("\"identifier\": \"" + identifier + "\"");
    return begin == std::string::npos
               ? ""
               : report.substr(begin, report.find("\"identifier\"", begin + 1) - begin);
}

bool has(const std::string& text, const char* part) {
    return text.find(part) != std::string::npos;
}

TEST(JsonReport, HasNullWhereNoLineOrColumnIsMeant) {
    const std::string text = jsonReport(check("G21 G90\nM3 S9\nG0 X0 Y0\nG0 Z5\n"));
    EXPECT_TRUE(has(text, "\"stopLine\": null"));
    const std::string finding = findingIn(text, "no-end-code");
    EXPECT_TRUE(has(finding, "\"line\": null,\n      \"column\": null")) << text;
    EXPECT_TRUE(has(finding, "\"place\": null"));
    EXPECT_TRUE(has(finding, "\"object\": null"));
}

TEST(JsonReport, CountsObjectsAsItsSentencesDo) {
    Drawing drawing;
    Shape first;
    first.kind = ShapeKind::Line;
    first.second = {10, 0};
    Shape second = first;
    second.second = {0, 10};
    drawing.shapes = {first, second};
    const std::string program =
        "M3 S9\nG21 G90\nG0 X0 Y0\nG0 Z5\nG1 Z-1 F100\nG1 X10\nG0 Z5\nM30\n";
    const std::string text = findingIn(jsonReport(check(program, {}, &drawing)), "not-cut");
    EXPECT_TRUE(has(text, " of line 2, from")) << text;
    EXPECT_TRUE(has(text, "\"object\": 2")) << text;
    drawing.shapes[1].object = 77;
    const std::string other = findingIn(jsonReport(check(program, {}, &drawing)), "not-cut");
    EXPECT_TRUE(has(other, " of line 77, from")) << other;
    EXPECT_TRUE(has(other, "\"object\": 77")) << other;
}

TEST(JsonReport, SaysWhereACutIsFarthestFromTheDrawingAndWhichMovesItIs) {
    Drawing drawing;
    Shape line;
    line.kind = ShapeKind::Line;
    line.second = {25.4, 0};
    drawing.shapes = {line};
    drawing.mmPerUnit = 1;
    const std::string text = findingIn(
        jsonReport(check("M3 S9\nG20 G90\nG0 X0 Y0\nG0 Z1\nG1 Z-1 F9\nG1 X1\nG1 Y2\nG0 Z1\nM30\n",
                         {}, &drawing)),
        "cut-off-drawing");
    for (const char* part :
         {"\"farthest\": {\n          \"x\": 1,\n          \"y\": 2\n",
          "\"drawingFarthest\": {\n          \"x\": 25.4,\n          \"y\": 50.8\n",
          "\"firstMotion\": {\n          \"line\": 7,\n          \"kind\": \"feed\"",
          "\"lastMotion\": {\n          \"line\": 7,"}) {
        EXPECT_TRUE(has(text, part)) << part << text;
    }
}

TEST(JsonWriter, EscapesWhatATextMayNotHold) {
    JsonWriter json;
    json.beginObject();
    json.text("all", std::string("\x01\x1f \"\\ \x7f \xc3\xa4 \xff\xc3(\xed\xa0\x80"));
    json.endObject();
    const std::string text = json.take();
    EXPECT_TRUE(isJson(text)) << text;
    EXPECT_NE(text.find("\\u0001\\u001f \\\"\\\\ \\u007f \xc3\xa4 "), std::string::npos) << text;
    EXPECT_EQ(text.find('\xff'), std::string::npos);
    EXPECT_EQ(text.find("\xed\xa0"), std::string::npos);
}

TEST(JsonWriter, ANumberThatIsNoneIsNull) {
    JsonWriter json;
    json.beginObject();
    json.number("none", std::numeric_limits<double>::quiet_NaN());
    json.number("much", std::numeric_limits<double>::infinity());
    json.number("large", 1e300);
    json.truth("yes", true);
    json.endObject();
    EXPECT_EQ(json.take(),
              "{\n  \"none\": null,\n  \"much\": null,\n  \"large\": 1.000000e+300,\n  \"yes\": "
              "true\n}\n");
}

}  // namespace
}  // namespace gcode_check
