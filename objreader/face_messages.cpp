#include "objreader/read_obj.h"

#include "host/app/app.h"
#include "host/app/localize.h"

/// Counts one more message about a face. At the limit it prints, once, that there will be no more.
bool CReadOBJ::MayPrintFaceMessage(int closingMessageId)
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

void CReadOBJ::PrintBogusFace()
{
    if (MayPrintFaceMessage(33339))
        KelvoApp().Print(KvLocalizeString(L"Encountered bogus mesh face.\n", 24463));
}

void CReadOBJ::PrintBadCorner(int badField, const char* token)
{
    if (!MayPrintFaceMessage(33343))
        return;
    switch (badField) {
    case BadFieldVertex:
        KelvoApp().Print(
            KvLocalizeString(L"Encountered mesh face with bogus vertex index (count is "
                             L"%d). Search for \"%S\" in your file.\n",
                             33340),
            vertices.Count(), token);
        break;
    case BadFieldTexture:
        KelvoApp().Print(
            KvLocalizeString(L"Encountered mesh face with bogus texture index (count is "
                             L"%d). Search for \"%S\" in your file.\n",
                             33341),
            texCoords.Count(), token);
        break;
    default:
        KelvoApp().Print(
            KvLocalizeString(L"Encountered mesh face with bogus normal index (count is "
                             L"%d). Search for \"%S\" in your file.\n",
                             33342),
            normals.Count(), token);
        break;
    }
}
