#include "host/app/plugin.h"

#include "console_host/app/console_app.h"

CKelvoPlugIn::CKelvoPlugIn()
{
    ConsoleApp::Instance().Register(this);
}

CKelvoPlugIn::~CKelvoPlugIn()
{
    ConsoleApp::Instance().Unregister(this);
}
