#include "objimport/sarif.h"

#include "objimport/check_text.h"
#include "objimport/json_stream.h"

#include <filesystem>

namespace {

constexpr const char* Schema = "https://json.schemastore.org/sarif-2.1.0.json";

const char* LevelName(CheckLevel level)
{
    if (level == CheckLevel::Note)
        return "note";
    return level == CheckLevel::Warning ? "warning" : "error";
}

class SarifWriter
{
public:
    SarifWriter(TextOutput& output, const Findings& findings) : m_json(output), m_findings(findings)
    {
    }

    void Write()
    {
        m_json.BeginObject();
        m_json.Members("$schema", Schema, "version", "2.1.0");
        m_json.Key("runs");
        m_json.BeginArray();
        m_json.BeginObject();
        WriteTool();
        if (const std::size_t leftOut = m_findings.LeftOut(); leftOut > 0)
            WriteNotification(FindingsLeftOut(leftOut));
        m_json.Members("columnKind", "utf16CodeUnits");
        m_json.ListMember("results", m_findings.Kept(),
                          [this](const Finding& finding) { WriteResult(finding); });
        m_json.EndObject();
        m_json.EndArray();
        m_json.EndObject();
    }

private:
    void WriteText(const char* member, const std::string& text)
    {
        m_json.Key(member);
        m_json.Object("text", text);
    }

    void WriteTool()
    {
        m_json.Key("tool");
        m_json.BeginObject();
        m_json.Key("driver");
        m_json.BeginObject();
        m_json.Members("name", "objimport", "version", IMPORTOBJ_VERSION);
        m_json.Key("rules");
        m_json.BeginArray();
        for (std::size_t i = 0; i < CheckKindCount; ++i) {
            m_json.NewLine();
            m_json.BeginObject();
            m_json.Members("id", NameOf(static_cast<CheckKind>(i)));
            WriteText("shortDescription", InWords(DescriptionOf(static_cast<CheckKind>(i)), {}));
            m_json.EndObject();
        }
        m_json.EndArray();
        m_json.EndObject();
        m_json.EndObject();
    }

    /// Writes something that is to be known of the whole run.
    void WriteNotification(const std::string& text)
    {
        m_json.Key("invocations");
        m_json.BeginArray();
        m_json.BeginObject();
        m_json.Members("executionSuccessful", true);
        m_json.Key("toolExecutionNotifications");
        m_json.BeginArray();
        m_json.BeginObject();
        m_json.Members("level", "warning");
        WriteText("message", text);
        m_json.EndObject();
        m_json.EndArray();
        m_json.EndObject();
        m_json.EndArray();
    }

    void WriteResult(const Finding& finding)
    {
        m_json.NewLine();
        m_json.BeginObject();
        m_json.Members("ruleId", NameOf(finding.kind), "ruleIndex", static_cast<int>(finding.kind),
                       "level", LevelName(finding.level));
        WriteText("message", InWords(finding));
        m_json.Key("locations");
        m_json.BeginArray();
        m_json.BeginObject();
        WriteLocation(finding);
        m_json.EndObject();
        m_json.EndArray();
        m_json.EndObject();
    }

    void WriteLocation(const Finding& finding)
    {
        const auto file = static_cast<std::size_t>(finding.file);
        m_json.Key("physicalLocation");
        m_json.BeginObject();
        m_json.Key("artifactLocation");
        m_json.Object("uri", ArtifactUri(m_findings.Files()[file]));
        if (finding.line > 0) {
            m_json.Key("region");
            m_json.Object("startLine", static_cast<int>(finding.line));
        }
        m_json.EndObject();
    }

    JsonStream m_json;
    const Findings& m_findings;
};

} // namespace

std::string ArtifactUri(std::string_view utf8Path)
{
    constexpr std::string_view Plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
                                       "0123456789-._~/";
    constexpr std::string_view Hex = "0123456789ABCDEF";
    const bool hasDrive = utf8Path.size() > 2 && utf8Path[1] == ':';
    const bool separatesFolders = hasDrive || std::filesystem::path::preferred_separator == '\\';
    std::string uri;
    if (hasDrive)
        uri = "file:///";
    else if (utf8Path.starts_with('/'))
        uri = "file://";
    for (std::size_t i = 0; i < utf8Path.size(); ++i) {
        const char c = utf8Path[i] == '\\' && separatesFolders ? '/' : utf8Path[i];
        const auto byte = static_cast<unsigned char>(c);
        if (Plain.find(c) != std::string_view::npos || (hasDrive && i == 1))
            uri += c;
        else
            uri.append("%").append(1, Hex[byte / 16]).append(1, Hex[byte % 16]);
    }
    return uri;
}

void WriteSarif(TextOutput& output, const Findings& findings)
{
    SarifWriter(output, findings).Write();
    output.Write('\n');
}
