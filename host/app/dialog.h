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

/// A modal dialog of a plug-in, as CDialog says.
class CKelvoDialog : public CKelvoUiDialog
{
public:
    using CKelvoUiDialog::CKelvoUiDialog;
};

/// Shows the host's own notice that a plug-in's options dialog for a kind of file will no longer be
/// shown, and how to get it back; returns when the user has closed it. `fileType` is the kind's
/// name in the user's language, only read during the call; `exporting` says whether the dialog is
/// that of an export. User-interface thread only. Throws std::bad_alloc when out of memory.
void KvPluginOptionIOWarningDialog(const wchar_t* fileType, bool exporting);
