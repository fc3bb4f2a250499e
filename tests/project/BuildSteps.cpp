// The model makes build steps and never runs them; what running takes stays out of these tests.
#include "build/Message.h"
#include "build/TextPostProcessMessage.h"

bool CMessage::PostProcess() {
    return true;
}
bool CTextPostProcessMessage::PostProcess() {
    return true;
}
