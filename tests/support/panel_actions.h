#pragma once

#include "panels/locator_converter_form.h"
#include "tests/support/recorded_messages.h"
#include "tests/support/table.h"

#include <optional>
#include <string_view>
#include <vector>

namespace orbisgrid::test {

/// What an action types into one control: a box, or a list that it chooses from.
struct TypedText {
    std::string_view control; ///< its objectName
    Text text;
};

/// One action on the main window, as rows and fuzzed inputs write it: a letter for the panel, a
/// blank, and what is typed there. Fields are separated by ";", those that are missing are empty.
///
///   L locator           C Home;Target (Calculate)
///   D latitude;longitude
///   M deg;min;sec;N/S;deg;min;sec;E/W
///   U UI-View text      P what is pasted into the locator box, without its OK
///
/// Any other letter presses the clear-all button.
struct PanelAction {
    std::vector<TypedText> typed;
    std::string_view button; ///< the objectName of what is pressed then; empty for a paste
};

PanelAction actionOf(TextView action);

/// The actions of a row: " | " stands between.
std::vector<PanelAction> actionsOf(TextView actions);

/// Does an action to the values. Result: whether the button's steps ran to their end, so that
/// hemisphere letters and signs agree.
bool act(LocatorConverterForm& form, const PanelAction& action, RecordedMessages& messages);

/// The message that a row expects, by its columns "message", "title" and "icon"; nothing where the
/// first is empty.
std::optional<Message> expectedMessage(const Row& row);

/// The messages in words, for comparisons that say what differs.
std::vector<std::string> described(const std::vector<Message>& messages);

} // namespace orbisgrid::test
