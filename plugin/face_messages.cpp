#include "plugin/face_messages.h"

#include "host/app/app.h"
#include "host/app/localize.h"

/// Counts one more message. At the limit it prints, once, that there will be no more.
bool FaceMessages::MayPrint(int closingMessageId)
{
    if (faceMessageCount < faceMessageLimit) {
        ++faceMessageCount;
        return true;
    }
    if (!faceMessagesStopped) {
        KelvoApp().Print(KvLocalizeString(L"Encountered %d bogus mesh faces. No longer displaying "
                                          L"errors to command line.\n",
                                          closingMessageId),
                         faceMessageCount);
        faceMessagesStopped = true;
    }
    return false;
}

void FaceMessages::PrintBogusFace()
{
    if (MayPrint(33339))
        KelvoApp().Print(KvLocalizeString(L"Encountered bogus mesh face.\n", 24463));
}

void FaceMessages::PrintBadCorner(BadField field, int listLength, const char* token)
{
    if (!MayPrint(33343))
        return;
    const wchar_t* text = nullptr;
    switch (field) {
    case BadFieldVertex:
        text = KvLocalizeString(L"Encountered mesh face with bogus vertex index (count is "
                                L"%d). Search for \"%S\" in your file.\n",
                                33340);
        break;
    case BadFieldTexture:
        text = KvLocalizeString(L"Encountered mesh face with bogus texture index (count is "
                                L"%d). Search for \"%S\" in your file.\n",
                                33341);
        break;
    default:
        text = KvLocalizeString(L"Encountered mesh face with bogus normal index (count is "
                                L"%d). Search for \"%S\" in your file.\n",
                                33342);
        break;
    }
    KelvoApp().Print(text, listLength, token);
}
