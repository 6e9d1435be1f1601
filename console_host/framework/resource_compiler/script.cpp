#include "console_host/framework/resource_compiler/script.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <map>
#include <stdexcept>
#include <string_view>

namespace {

/// A line cut into words, numbers, quoted texts (with their first quote) and single signs.
using Tokens = std::vector<std::string>;

Tokens Cut(std::string_view line)
{
    Tokens tokens;
    std::size_t at = 0;
    const auto isWord = [&](std::size_t i) {
        return std::isalnum(static_cast<unsigned char>(line[i])) != 0 || line[i] == '_';
    };
    while (at < line.size() && line.substr(at, 2) != "//") {
        std::size_t end = at + 1;
        if (line[at] == '"') {
            end = std::min(line.find('"', at + 1), line.size());
            tokens.emplace_back(line.substr(at, end - at));
            ++end;
        } else if (isWord(at)) {
            while (end < line.size() && isWord(end))
                ++end;
            tokens.emplace_back(line.substr(at, end - at));
        } else if (std::isspace(static_cast<unsigned char>(line[at])) == 0) {
            tokens.emplace_back(1, line[at]);
        }
        at = end;
    }
    return tokens;
}

/// Reads one script line by line.
class ScriptReader
{
public:
    std::vector<ScriptDialog> Read(const std::filesystem::path& path);

private:
    void ReadLine();
    void ReadInclude();
    void ReadDefine(const Tokens& tokens);
    void ReadDialogLine();
    void ReadControlLine();
    void ReadClass(ScriptControl& control);
    void ApplyStyles(ScriptControl& control);

    [[noreturn]] void Fail(const std::string& what) const
    {
        throw std::runtime_error(m_path.string() + ":" + std::to_string(m_line) + ": " + what);
    }
    std::string Next();
    bool Accept(std::string_view token);
    int Number();
    std::string Text();
    DialogRect Rect();

    std::filesystem::path m_path;
    int m_line = 0;
    Tokens m_tokens;
    std::size_t m_at = 0;
    std::map<std::string, int> m_names;
    std::vector<ScriptDialog> m_dialogs;
    bool m_inDialog = false;
    bool m_inControls = false;
};

std::vector<ScriptDialog> ScriptReader::Read(const std::filesystem::path& path)
{
    m_path = path;
    std::ifstream file(path);
    if (!file)
        Fail("cannot be read");
    for (std::string line; std::getline(file, line);) {
        ++m_line;
        m_tokens = Cut(line);
        m_at = 0;
        if (!m_tokens.empty())
            ReadLine();
    }
    if (m_inDialog)
        Fail("a dialog has no END");
    return std::move(m_dialogs);
}

void ScriptReader::ReadLine()
{
    if (m_tokens.size() > 2 && m_tokens[1] == "include")
        ReadInclude();
    else if (m_tokens.size() > 2 && m_tokens[1] == "DIALOGEX") {
        m_dialogs.emplace_back().id = Number();
        ++m_at;
        m_dialogs.back().place = Rect();
        m_inDialog = true;
    } else if (m_inControls)
        ReadControlLine();
    else if (m_inDialog)
        ReadDialogLine();
}

void ScriptReader::ReadInclude()
{
    if (m_tokens[2].front() != '"')
        return; // a header of the platform
    std::ifstream header(m_path.parent_path() / m_tokens[2].substr(1));
    if (!header)
        Fail("the included file cannot be read");
    for (std::string line; std::getline(header, line);)
        ReadDefine(Cut(line));
}

void ScriptReader::ReadDefine(const Tokens& tokens)
{
    if (tokens.size() < 4 || tokens[1] != "define")
        return;
    std::string value;
    for (std::size_t i = 3; i < tokens.size(); ++i) {
        if (tokens[i] != "(" && tokens[i] != ")")
            value += tokens[i];
    }
    m_names[tokens[2]] = std::stoi(value);
}

void ScriptReader::ReadDialogLine()
{
    ScriptDialog& dialog = m_dialogs.back();
    if (Accept("CAPTION"))
        dialog.caption = Text();
    else if (Accept("FONT")) {
        dialog.pointSize = Number();
        if (!Accept(","))
            Fail("',' expected");
        dialog.font = Text();
    } else if (Accept("BEGIN"))
        m_inControls = true;
    else if (!Accept("STYLE"))
        Fail("unknown statement " + m_tokens[0]);
}

void ScriptReader::ReadControlLine()
{
    if (Accept("END")) {
        m_inControls = m_inDialog = false;
        return;
    }
    ScriptControl control;
    const std::string statement = Next();
    control.text = Text();
    Accept(",");
    control.id = Number();
    Accept(",");
    if (statement == "CONTROL")
        ReadClass(control);
    else if (statement == "LTEXT")
        control.kind = DialogControlKind::Text;
    else if (statement == "PUSHBUTTON" || statement == "DEFPUSHBUTTON") {
        control.kind = statement == "PUSHBUTTON" ? DialogControlKind::PushButton
                                                 : DialogControlKind::DefaultPushButton;
        control.tabStop = true;
    } else
        Fail("unknown control " + statement);
    control.place = Rect();
    if (Accept(","))
        ApplyStyles(control);
    m_dialogs.back().controls.push_back(control);
}

void ScriptReader::ReadClass(ScriptControl& control)
{
    const std::string name = Text();
    if (name != "Button" && name != "Static")
        Fail("unknown control class " + name);
    Accept(",");
    ApplyStyles(control);
}

void ScriptReader::ApplyStyles(ScriptControl& control)
{
    do {
        const std::string style = Next();
        if (style == "BS_AUTORADIOBUTTON")
            control.kind = DialogControlKind::RadioButton;
        else if (style == "BS_AUTOCHECKBOX")
            control.kind = DialogControlKind::CheckBox;
        else if (style == "SS_SUNKEN")
            control.kind = DialogControlKind::Line;
        else if (style == "WS_GROUP")
            control.startsGroup = true;
        else if (style == "WS_TABSTOP")
            control.tabStop = true;
        else
            Fail("unknown style " + style);
    } while (Accept("|"));
    Accept(",");
}

std::string ScriptReader::Next()
{
    if (m_at == m_tokens.size())
        Fail("the line ends too early");
    return m_tokens[m_at++];
}

bool ScriptReader::Accept(std::string_view token)
{
    if (m_at == m_tokens.size() || m_tokens[m_at] != token)
        return false;
    ++m_at;
    return true;
}

int ScriptReader::Number()
{
    const std::string token = Next();
    if (const auto name = m_names.find(token); name != m_names.end())
        return name->second;
    if (std::isdigit(static_cast<unsigned char>(token.front())) == 0)
        Fail("a number expected, not " + token);
    return std::stoi(token);
}

std::string ScriptReader::Text()
{
    const std::string token = Next();
    if (token.front() != '"')
        Fail("a text expected, not " + token);
    return token.substr(1);
}

DialogRect ScriptReader::Rect()
{
    DialogRect rect = {};
    for (int* part : {&rect.x, &rect.y, &rect.width, &rect.height}) {
        *part = Number();
        if (part != &rect.height && !Accept(","))
            Fail("',' expected");
    }
    return rect;
}

} // namespace

std::vector<ScriptDialog> ReadResourceScript(const std::filesystem::path& path)
{
    return ScriptReader().Read(path);
}
