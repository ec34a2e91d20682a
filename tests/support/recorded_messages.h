#pragma once

#include "panels/message.h"

#include <vector>

namespace orbisgrid::test {

/// Keeps the messages that were shown, in order.
class RecordedMessages : public Messages {
public:
    void show(const Message& message) override { shown.push_back(message); }

    std::vector<Message> shown;
};

} // namespace orbisgrid::test
