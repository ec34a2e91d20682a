#pragma once

#include "panels/locator_converter_form.h"
#include "tests/support/recorded_messages.h"

#include <algorithm>
#include <array>

namespace orbisgrid::fuzz {

/// One line of an input is one action: a letter for the panel and what is typed there.
struct Action {
    char16_t panel;            ///< L, D, M, U, P (paste into the locator panel), C; else refresh
    Text text;                 ///< all of it
    std::array<Text, 8> parts; ///< between ";", empty where there is none
};

inline Action actionOf(const Text& line) {
    Action action{line.front(), line.substr(1), {}};
    std::size_t part = 0;
    for (const char16_t character : action.text) {
        if (character == u';')
            part = std::min(part + 1, action.parts.size() - 1);
        else
            action.parts[part] += character;
    }
    return action;
}

/// Result: whether the chain ran to its end, so that letters and signs agree.
inline bool act(LocatorConverterForm& form, const Action& action,
                test::RecordedMessages& messages) {
    Converter& converter = form.converter;
    const auto& parts = action.parts;
    switch (action.panel) {
    case u'L':
        converter.txtLocator.set(action.text);
        return form.convertLocator(messages);
    case u'D':
        converter.txtDecLat.set(parts[0]);
        converter.txtDecLong.set(parts[1]);
        converter.cmdOKDecimal_Click(messages);
        return messages.shown.empty();
    case u'M':
        for (std::size_t i = 0; i < 3; ++i) {
            converter.txtlatdms[i].set(parts[i]);
            converter.txtlondms[i].set(parts[i + 4]);
        }
        converter.cmbDmsNS.ListIndex = parts[3] == u"S" ? 1 : 0;
        converter.cmbDmsWE.ListIndex = parts[7] == u"W" ? 1 : 0;
        converter.cmdOkDMS_Click(messages);
        return messages.shown.empty();
    case u'U':
        converter.txtUIView.set(action.text);
        converter.cmdOkUIView_Click(messages);
        return converter.txtUIView.text().size() >= 10;
    case u'P':
        converter.paste(action.text);
        return false;
    case u'C':
        form.homeTarget.txtHome.set(parts[0]);
        form.homeTarget.txtTarget.set(parts[1]);
        return form.calculate(messages) == CalculateEnd::calculated;
    default:
        form.refresh();
        return false;
    }
}

} // namespace orbisgrid::fuzz
