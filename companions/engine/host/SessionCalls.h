// The calls that only ask the session, as messages.
#pragma once

#include "Session.h"
#include "protocol/Message.h"
#include "protocol/SharedBlock.h"

// Writes the results, without the number in front that tells success. False: failed, or no such call.
bool AskSession(CSession &session, Request request, CMessageReader &in, CMessageWriter &out);
