#pragma once

#include "plugin/import_options.h"

#include "host/app/dialog.h"

/// The dialog in which the user sets all import options. Made for one showing, while the module's
/// state is current.
class CObjImportDlg : public CKelvoDialog
{
public:
    /// `parent` may be null.
    explicit CObjImportDlg(CWnd* parent);

    /// Sets what the dialog opens with. The group choice must be 0 to 3.
    void SetOptions(const ObjImportOptions& options);

    /// What the dialog was closed with, after DoModal gave DialogOK.
    [[nodiscard]] ObjImportOptions Options() const;

protected:
    [[nodiscard]] std::span<const MessageMapEntry> MessageMap() const override;
    void DoDataExchange(CDataExchange& exchange) override;
    bool OnInitDialog() override;
    void OnOK() override;

private:
    void OnGroupChoice();
    void OnMorphTarget();
    void OnHelp();
    void EnableObjectNames();

    int m_groupChoice = 1; ///< as ObjImportOptions::HowToAddGs
    int m_objectNames = 1;
    int m_morphTarget = 0;
    int m_reverseGroupOrder = 0;
    int m_ignoreTextures = 0;
    int m_dontShow = 0;
    int m_yToZ = 0;
    int m_splitTextures = 0;

    CKelvoUiSeparator m_groupsHeading;
    CKelvoUiCheckBox m_objectNamesBox;
    CKelvoUiCheckBox m_morphTargetBox;
    CKelvoUiCheckBox m_groupButtons[HowToAddGsLimit + 1]; ///< by group choice
};
