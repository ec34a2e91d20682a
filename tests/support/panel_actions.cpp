#include "tests/support/panel_actions.h"

#include <stdexcept>

namespace orbisgrid::test {

namespace {

/// The controls of a panel in the order in which an action names their texts, and its button.
struct PanelControls {
    std::vector<std::string_view> boxes;
    std::string_view button;
};

const PanelControls& controlsOf(char16_t panel) {
    static const PanelControls locator{{"txtLocator"}, "cmdOKLocator"};
    static const PanelControls paste{{"txtLocator"}, ""};
    static const PanelControls decimal{{"txtDecLat", "txtDecLong"}, "cmdOKDecimal"};
    static const PanelControls dms{{"txtlatdms_0", "txtlatdms_1", "txtlatdms_2", "cmbDmsNS",
                                    "txtlondms_0", "txtlondms_1", "txtlondms_2", "cmbDmsWE"},
                                   "cmdOkDMS"};
    static const PanelControls uiView{{"txtUIView"}, "cmdOkUIView"};
    static const PanelControls calculate{{"txtHome", "txtTarget"}, "cmdCalculateDistDir"};
    static const PanelControls clearAll{{}, "cmdRefresh"};
    switch (panel) {
    case u'L':
        return locator;
    case u'P':
        return paste;
    case u'D':
        return decimal;
    case u'M':
        return dms;
    case u'U':
        return uiView;
    case u'C':
        return calculate;
    default:
        return clearAll;
    }
}

/// `count` fields of a text; the last one takes what is left, separators included.
std::vector<Text> fields(TextView text, std::size_t count) {
    std::vector<Text> parts;
    while (parts.size() + 1 < count) {
        const std::size_t end = text.find(u';');
        parts.emplace_back(text.substr(0, end));
        text = end == TextView::npos ? TextView() : text.substr(end + 1);
    }
    parts.emplace_back(text);
    return parts;
}

TextBox* boxOf(LocatorConverterForm& form, std::string_view name) {
    Converter& converter = form.converter;
    const std::pair<std::string_view, TextBox*> boxes[] = {
        {"txtLocator", &converter.txtLocator},    {"txtDecLat", &converter.txtDecLat},
        {"txtDecLong", &converter.txtDecLong},    {"txtlatdms_0", &converter.txtlatdms[0]},
        {"txtlatdms_1", &converter.txtlatdms[1]}, {"txtlatdms_2", &converter.txtlatdms[2]},
        {"txtlondms_0", &converter.txtlondms[0]}, {"txtlondms_1", &converter.txtlondms[1]},
        {"txtlondms_2", &converter.txtlondms[2]}, {"txtUIView", &converter.txtUIView},
        {"txtHome", &form.homeTarget.txtHome},    {"txtTarget", &form.homeTarget.txtTarget}};
    for (const auto& [boxName, box] : boxes) {
        if (boxName == name)
            return box;
    }
    return nullptr;
}

void type(LocatorConverterForm& form, const TypedText& typed) {
    Converter& converter = form.converter;
    if (TextBox* box = boxOf(form, typed.control))
        box->set(typed.text);
    else if (typed.control == "cmbDmsNS")
        converter.cmbDmsNS.ListIndex = typed.text == converter.cmbDmsNS.items[1] ? 1 : 0;
    else
        converter.cmbDmsWE.ListIndex = typed.text == converter.cmbDmsWE.items[1] ? 1 : 0;
}

bool press(LocatorConverterForm& form, std::string_view button, RecordedMessages& messages) {
    constexpr std::size_t shortestUIView = 10;
    Converter& converter = form.converter;
    if (button == "cmdOKLocator")
        return form.convertLocator(messages);
    if (button == "cmdOKDecimal")
        converter.cmdOKDecimal_Click(messages);
    else if (button == "cmdOkDMS")
        converter.cmdOkDMS_Click(messages);
    else if (button == "cmdOkUIView")
        converter.cmdOkUIView_Click(messages);
    else if (button == "cmdCalculateDistDir")
        return form.calculate(messages) == CalculateEnd::calculated;
    else
        form.refresh();
    return messages.shown.empty() && converter.txtUIView.text().size() >= shortestUIView;
}

MessageIcon iconOf(const Row& row) {
    const std::string& name = row["icon"];
    if (name == "none")
        return MessageIcon::none;
    if (name == "information")
        return MessageIcon::information;
    if (name == "exclamation")
        return MessageIcon::exclamation;
    throw std::runtime_error(row.place + ": no icon: " + name);
}

} // namespace

PanelAction actionOf(TextView action) {
    const PanelControls& controls = controlsOf(action.empty() ? u' ' : action.front());
    PanelAction result{{}, controls.button};
    const std::vector<Text> texts =
        fields(action.substr(std::min<std::size_t>(action.size(), 2)), controls.boxes.size());
    for (std::size_t i = 0; i < controls.boxes.size(); ++i)
        result.typed.push_back({controls.boxes[i], texts[i]});
    return result;
}

std::vector<PanelAction> actionsOf(TextView actions) {
    constexpr TextView separator = u" | ";
    std::vector<PanelAction> result;
    for (std::size_t end = 0; end != TextView::npos;) {
        end = actions.find(separator);
        result.push_back(actionOf(actions.substr(0, end)));
        if (end != TextView::npos)
            actions.remove_prefix(end + separator.size());
    }
    return result;
}

bool act(LocatorConverterForm& form, const PanelAction& action, RecordedMessages& messages) {
    if (action.button.empty()) {
        form.converter.paste(action.typed.front().text);
        return false;
    }
    for (const TypedText& typed : action.typed)
        type(form, typed);
    return press(form, action.button, messages);
}

std::optional<Message> expectedMessage(const Row& row) {
    if (row["message"].empty())
        return std::nullopt;
    return Message{row.text("message"), row.text("title"), iconOf(row)};
}

std::vector<std::string> described(const std::vector<Message>& messages) {
    std::vector<std::string> result;
    for (const Message& message : messages)
        result.push_back(toUtf8(message.text) + " [" + toUtf8(message.title) + "] icon " +
                         std::to_string(static_cast<int>(message.icon)));
    return result;
}

} // namespace orbisgrid::test
