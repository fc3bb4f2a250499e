// A step that owes no output files: a text stands for its success.
#pragma once

#include "build/Message.h"

class CTextPostProcessMessage : public CMessage {
public:
    using CMessage::CMessage;

    bool PostProcess() override;

    std::string text = "Done";  // written to the build list when the step has ended
};
