// A module that exports nothing that a host looks for.

#ifdef _WIN32
#define EXPORTED __declspec(dllexport)
#else
#define EXPORTED
#endif

extern "C" EXPORTED int SomethingElse();

int SomethingElse()
{
    return 1;
}
