#include "build/TextPostProcessMessage.h"

#include "app/IDEApp.h"

bool CTextPostProcessMessage::PostProcess() {
    CIDEApp::Get().AddOutputLine(text);
    return true;
}
