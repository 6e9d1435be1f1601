// A module whose plug-in does what the words of a file tell it.

#include "host/app/app.h"
#include "host/app/command.h"
#include "host/app/doc.h"
#include "host/app/localize.h"
#include "host/app/message_box.h"
#include "host/app/plugin.h"
#include "host/app/profile.h"
#include "host/framework/wait_cursor.h"
#include "host/framework/win_app.h"
#include "host/runtime/file.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr const wchar_t* Section = L"Plug-Ins\\01000000-0000-0000-0000-000000000000\\Settings";

class ScriptedPlugIn : public CKelvoFileImportPlugIn
{
public:
    [[nodiscard]] GK_UUID PlugInId() const override { return {{1}}; }
    [[nodiscard]] const wchar_t* PlugInName() const override { return L"Scripted"; }
    [[nodiscard]] const wchar_t* LocalPlugInName() const override
    {
        return KvLocalizeString(L"Scripted", 1);
    }
    [[nodiscard]] const wchar_t* PlugInVersion() const override { return L"1.0"; }

    int OnLoad() override
    {
        KelvoApp().ProfileContext().ReadInt(Section, L"HowToAddGs", m_groups);
        KelvoApp().ProfileContext().ReadBool(Section, L"ZUp", m_zUp);
        bool stay = true;
        KelvoApp().ProfileContext().ReadBool(Section, L"Stay", stay);
        return stay ? 1 : 0;
    }

    void OnUnload() override
    {
        KelvoApp().ProfileContext().WriteInt(Section, L"HowToAddGs", m_groups);
        KelvoApp().ProfileContext().WriteBool(Section, L"ZUp", m_zUp);
    }

    void AddFileTypes(CKelvoFileTypeList& types, const CKelvoFileReadOptions&) override
    {
        types.Append({PlugInId(), L"Script (*.txt)", L"txt"});
    }

    bool ReadFile(const wchar_t* fileName, int, CKelvoDoc& doc,
                  const CKelvoFileReadOptions& options) override
    {
        m_result = true;
        std::FILE* stream = _wfopen(fileName, L"rb");
        if (stream == nullptr)
            return false;
        char word[32];
        while (std::fscanf(stream, "%31s", word) == 1)
            m_words.emplace_back(word);
        std::fclose(stream);
        while (!m_words.empty()) {
            const std::string next = m_words.front();
            m_words.erase(m_words.begin());
            Do(next, fileName, doc, options);
        }
        return m_result;
    }

private:
    /// Works until the file is removed.
    static void AwaitRemoval(const wchar_t* fileName)
    {
        const CWaitCursor cursor;
        for (std::FILE* file = _wfopen(fileName, L"rb"); file != nullptr;
             file = _wfopen(fileName, L"rb")) {
            std::fclose(file);
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
    }

    void Do(const std::string& word, const wchar_t* fileName, CKelvoDoc& doc,
            const CKelvoFileReadOptions& options)
    {
        if (word == "state")
            KelvoApp().Print(L"groups %i zup %i modes %i%i tolerance %g\n", m_groups, m_zUp ? 1 : 0,
                             options.Mode(ReadModeAskOnCommandLine),
                             options.Mode(ReadModeZoomExtents), doc.AbsoluteTolerance());
        else if (word == "path")
            KelvoApp().Print(L"%s\n", fileName);
        else if (word == "point")
            doc.AddPointObject({1, 2, 3}, {}, nullptr, false);
        else if (word == "box")
            KelvoMessageBox(L"boxed", L"caption", MessageBoxExclamation);
        else if (word == "fail")
            m_result = false;
        else if (word == "wait")
            m_cursor = std::make_unique<CWaitCursor>();
        else if (word == "await")
            AwaitRemoval(fileName);
        else if (word == "throw")
            throw std::runtime_error("thrown");
    }

    int m_groups = 1;
    bool m_zUp = false;
    bool m_result = true;
    std::vector<std::string> m_words;
    std::unique_ptr<CWaitCursor> m_cursor;
};

/// Prints what the settings held, or fails.
class ScriptedCommand : public CKelvoTestCommand
{
public:
    ScriptedCommand(const wchar_t* name, int result)
        : CKelvoTestCommand(0, 0, nullptr), m_name(name), m_result(result)
    {
    }

    [[nodiscard]] GK_UUID CommandUUID() const override { return {{2}}; }
    [[nodiscard]] const wchar_t* EnglishCommandName() const override { return m_name; }
    int RunCommand() override
    {
        int groups = 1;
        KelvoApp().ProfileContext().ReadInt(Section, L"HowToAddGs", groups);
        KelvoApp().Print(L"groups %i\n", groups);
        return m_result;
    }

private:
    const wchar_t* m_name;
    int m_result;
};

class ScriptedApp : public CWinApp
{
public:
    bool InitInstance() override { return std::getenv("SCRIPTED_MODULE_FAILS") == nullptr; }
};

ScriptedPlugIn plugIn;
ScriptedCommand say(L"say", CommandSuccess);
ScriptedCommand giveUp(L"giveUp", CommandCancel);
ScriptedApp app;

} // namespace
