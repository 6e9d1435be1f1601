#include "plugin/obj_import_dlg.h"

#include "plugin/resource.h"

#include "host/app/app.h"
#include "host/app/localize.h"
#include "host/app/message_box.h"

namespace {

constexpr int HelpTopic = 1205;
constexpr unsigned int WarningWithOkButton = 0x30;

/// The radio buttons by group choice.
constexpr int GroupButtonIds[] = {IDC_GROUPS_NOTHING, IDC_GROUPS_GROUPS, IDC_GROUPS_LAYERS,
                                  IDC_GROUPS_OBJECT_NAMES};

constexpr const wchar_t* MorphTargetWarning =
    L"Checking the \"Import As Morph Target\" checkbox will import an entire OBJ file as a single "
    L"mesh.  It ignores grouping, texture coordinates and normals included in the file.  It's sole "
    L"purpose is to maintain the vertex and face counts and orders.  If your ultimate goal is not "
    L"to re-export the mesh as a morph target you'll be a lot happier unchecking that checkbox.";

} // namespace

CObjImportDlg::CObjImportDlg(CWnd* parent) : CKelvoDialog(IDD_OBJ_IMPORT, parent) {}

void CObjImportDlg::SetOptions(const ObjImportOptions& options)
{
    m_groupChoice = options.HowToAddGs;
    m_objectNames = options.UseONames ? 1 : 0;
    m_morphTarget = options.ImportAsMorphTarget ? 1 : 0;
    m_reverseGroupOrder = options.ReverseGroupOrder ? 1 : 0;
    m_ignoreTextures = options.IgnoreTextures ? 1 : 0;
    m_dontShow = options.DontShowDialog ? 1 : 0;
    m_yToZ = options.ZUp ? 1 : 0;
    m_splitTextures = options.Split32bitTextures ? 1 : 0;
}

ObjImportOptions CObjImportDlg::Options() const
{
    ObjImportOptions options;
    options.HowToAddGs = m_groupChoice;
    options.UseONames = m_objectNames == 1;
    options.ImportAsMorphTarget = m_morphTarget == 1;
    options.ReverseGroupOrder = m_reverseGroupOrder == 1;
    options.IgnoreTextures = m_ignoreTextures == 1;
    options.DontShowDialog = m_dontShow == 1;
    options.ZUp = m_yToZ == 1;
    options.Split32bitTextures = m_splitTextures == 1;
    return options;
}

std::span<const MessageMapEntry> CObjImportDlg::MessageMap() const
{
    static const MessageMapEntry Map[] = {
        OnClick(IDC_GROUPS_NOTHING, &CObjImportDlg::OnGroupChoice),
        OnClick(IDC_GROUPS_GROUPS, &CObjImportDlg::OnGroupChoice),
        OnClick(IDC_GROUPS_LAYERS, &CObjImportDlg::OnGroupChoice),
        OnClick(IDC_GROUPS_OBJECT_NAMES, &CObjImportDlg::OnGroupChoice),
        OnClick(IDC_MORPH_TARGET, &CObjImportDlg::OnMorphTarget),
        OnClick(IDC_OK, &CObjImportDlg::OnOK),
        OnClick(IDC_HELP, &CObjImportDlg::OnHelp),
        OnHelpRequest(&CObjImportDlg::OnHelp),
    };
    return Map;
}

void CObjImportDlg::DoDataExchange(CDataExchange& exchange)
{
    CKelvoDialog::DoDataExchange(exchange);
    exchange.Control(IDC_GROUPS_HEADING, m_groupsHeading);
    exchange.Control(IDC_OBJECT_NAMES, m_objectNamesBox);
    exchange.Control(IDC_MORPH_TARGET, m_morphTargetBox);
    for (int choice = 0; choice <= HowToAddGsLimit; ++choice)
        exchange.Control(GroupButtonIds[choice], m_groupButtons[choice]);

    exchange.Check(IDC_OBJECT_NAMES, m_objectNames);
    exchange.Check(IDC_MORPH_TARGET, m_morphTarget);
    exchange.Check(IDC_REVERSE_GROUP_ORDER, m_reverseGroupOrder);
    exchange.Check(IDC_IGNORE_TEXTURES, m_ignoreTextures);
    exchange.Check(IDC_DONT_SHOW, m_dontShow);
    exchange.Check(IDC_Y_TO_Z, m_yToZ);
    exchange.Check(IDC_SPLIT_TEXTURES, m_splitTextures);
}

bool CObjImportDlg::OnInitDialog()
{
    CKelvoDialog::OnInitDialog();
    m_groupButtons[m_groupChoice].SetCheck(true);
    EnableObjectNames();
    return true;
}

void CObjImportDlg::OnGroupChoice()
{
    for (int choice = 0; choice <= HowToAddGsLimit; ++choice) {
        if (m_groupButtons[choice].GetCheck()) {
            m_groupChoice = choice;
            break;
        }
    }
    EnableObjectNames();
}

/// "o" names have no effect while group names become the names of objects.
void CObjImportDlg::EnableObjectNames()
{
    m_objectNamesBox.EnableWindow(m_groupChoice != AsObjectNames);
}

void CObjImportDlg::OnMorphTarget()
{
    if (!m_morphTargetBox.GetCheck())
        return;
    KelvoMessageBox(KvLocalizeString(MorphTargetWarning, 24461),
                    KvLocalizeString(L"Import as Morph Target Warning", 24462),
                    WarningWithOkButton);
}

void CObjImportDlg::OnOK()
{
    CKelvoDialog::OnOK();
}

void CObjImportDlg::OnHelp() // NOLINT(*-to-static): the message map calls members
{
    KelvoApp().DoHelp(HelpTopic);
}
