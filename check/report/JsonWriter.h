// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace gcode_check {

// Writes JSON that people can read: a member a line, two blanks a level. Bytes that are no UTF-8
// become the replacement character, numbers that JSON does not know become null.
class JsonWriter {
public:
    void beginObject(std::string_view name = {});
    void endObject();
    void beginArray(std::string_view name);
    void endArray();
    void text(std::string_view name, std::string_view value);
    void number(std::string_view name, double value);
    void count(std::string_view name, std::size_t value);
    void truth(std::string_view name, bool value);
    void none(std::string_view name);

    // The whole, with a line feed at its end.
    std::string take();

private:
    void beginValue(std::string_view name);
    void end(char bracket);
    void quote(std::string_view value);

    std::string m_text;
    std::size_t m_depth = 0;
    bool m_first = true;
};

}  // namespace gcode_check
