#pragma once

#include "host/framework/dialog.h"

/// A check box or radio button in the host's look.
class CKelvoUiCheckBox : public CButton
{
};

/// A heading between parts of a dialog in the host's look.
class CKelvoUiSeparator : public CWnd
{
};

/// A dialog in the host's look.
class CKelvoUiDialog : public CDialog
{
public:
    using CDialog::CDialog;
};

/// A modal dialog of a plug-in.
class CKelvoDialog : public CKelvoUiDialog
{
public:
    using CKelvoUiDialog::CKelvoUiDialog;
};

/// The host's own notice that a plug-in's options dialog for a kind of file will no longer be
/// shown, and how to get it back. `fileType` is the kind's name; `exporting` says whether the
/// dialog is that of an export.
void KvPluginOptionIOWarningDialog(const wchar_t* fileType, bool exporting);
