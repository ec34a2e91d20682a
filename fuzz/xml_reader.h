#pragma once

#include "core/text.h"

#include <string>
#include <string_view>
#include <vector>

namespace orbisgrid::fuzz {

/// Reads an XML 1.0 file as far as the program writes it: a declaration, elements with attributes
/// in double quotes, texts with the entities that need no definition. Stricter than XML where the
/// program is.
class XmlReader {
public:
    explicit XmlReader(std::string_view file)
        : m_rest(file) {}

    /// Whether it is well-formed, with one element around everything.
    bool isWellFormed() {
        if (!take("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n") || !areCharacters(m_rest))
            return false;
        do {
            if (!(m_rest.starts_with('<') ? readTag() : readText()))
                return false;
        } while (!m_open.empty());
        return m_rest == "\n";
    }

private:
    static bool areCharacters(std::string_view bytes) {
        const Text text = fromUtf8(bytes);
        if (toUtf8(text) != bytes)
            return false; // bytes that are no UTF-8
        for (const char16_t character : text) {
            const bool isControl = character < 0x20 && character != u'\n' && character != u'\t';
            if (isControl || character >= 0xFFFE)
                return false;
        }
        return true;
    }

    bool take(std::string_view expected) {
        const bool isThere = m_rest.starts_with(expected);
        if (isThere)
            m_rest.remove_prefix(expected.size());
        return isThere;
    }

    std::string name() {
        const std::size_t end = m_rest.find_first_not_of(
            "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ-:0123456789");
        std::string result(m_rest.substr(0, end));
        m_rest.remove_prefix(result.size());
        return result;
    }

    bool readTag() {
        if (take("</")) {
            const std::string closed = name();
            if (m_open.empty() || m_open.back() != closed)
                return false;
            m_open.pop_back();
            return take(">");
        }
        m_rest.remove_prefix(1);
        const std::string opened = name();
        while (take(" ")) {
            if (name().empty() || !take("=\"") || !readUntil('"') || !take("\""))
                return false;
        }
        if (take("/>"))
            return !opened.empty() && !m_open.empty();
        m_open.push_back(opened);
        return !opened.empty() && take(">");
    }

    bool readText() { return !m_open.empty() && readUntil('<'); }

    /// Texts hold no "<", and "&" only in front of an entity.
    bool readUntil(char last) {
        while (!m_rest.empty() && m_rest.front() != last) {
            if (m_rest.front() == '<')
                return false;
            const bool isEntity = take("&amp;") || take("&lt;") || take("&gt;") || take("&#13;");
            if (!isEntity && m_rest.front() == '&')
                return false;
            if (!isEntity)
                m_rest.remove_prefix(1);
        }
        return !m_rest.empty();
    }

    std::string_view m_rest;
    std::vector<std::string> m_open;
};

inline bool isXml(std::string_view file) {
    return XmlReader(file).isWellFormed();
}

} // namespace orbisgrid::fuzz
