#include "tests/support/made_log.h"

#include <array>
#include <random>
#include <string_view>

namespace orbisgrid::test {

namespace {

/// Writes the contacts of a log one behind the other.
class LogMaker {
public:
    explicit LogMaker(LogKind kind)
        : m_isOdd(kind == LogKind::odd) {}

    std::string make(std::size_t contacts) {
        m_log = "Made up\n<ADIF_VER:5>3.1.4 <PROGRAMID:4>test <EOH>\n";
        for (std::size_t i = 0; i < contacts; ++i)
            addContact();
        if (m_isOdd)
            m_log += "<APP_LoTW_EOF>\n<CALL:4>G4AB <GRIDSQUARE:6>FN42AA\n"; // nobody ended it
        return std::move(m_log);
    }

private:
    std::size_t below(std::size_t end) { return m_random() % end; }

    bool oneIn(std::size_t number) { return m_isOdd && below(number) == 0; }

    void addField(std::string_view name, std::string_view value) {
        addField(name, value, value.size());
    }

    void addField(std::string_view name, std::string_view value, std::size_t length) {
        m_log += '<';
        for (const char letter : name)
            m_log += m_isSmall && letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32)
                                                                 : letter;
        (m_log += ':') += std::to_string(length);
        if (oneIn(9))
            m_log += ":S";
        (m_log += '>') += value;
        m_log += m_separator;
        if (oneIn(40))
            m_log += "// checked ";
    }

    void addOddField() {
        switch (below(12)) {
        case 0:
            return addField("NAME", "Zürich", 6);
        case 1:
            return addField("NAME", "Z\xFCrich");
        case 2:
            return addField("NOTES", "one\r\ntwo", 7);
        case 3:
            return addField("NOTES", "one\ntwo", 8);
        case 4:
            return addField("NOTES", "5 < 6 > 4 <EOR> <b>");
        case 5:
            return addField("COMMENT", "");
        case 6:
            return addField("QTH", "東京都", 3);
        case 7:
            return addField("DISTANCE:1:N", "", 0); // a length and a type of its own
        case 8:
            return addField("RIG", "big", 5);
        case 9:
            return addField("RIG", "big", 1);
        case 10:
            m_log += "<X> < > ";
            return;
        default:
            return addField("APP_N1MM_{A}", "x");
        }
    }

    void addPlace() {
        const std::string locator = madeLocator(m_random());
        if (oneIn(12)) {
            addField("LAT", "N050 56.250");
            addField("LON", "W004 02.500");
        } else if (oneIn(25)) {
            addField("GRIDSQUARE", "FN4?");
        } else if (!oneIn(15)) {
            addField("GRIDSQUARE", locator.substr(0, 4 + 2 * below(2)));
        }
        if (oneIn(7))
            addField("GRIDSQUARE", locator + "\r\n", locator.size() + 2 * below(2));
        addField("MY_GRIDSQUARE", oneIn(10) ? "FN42" : "JO20AW");
    }

    void addContact() {
        constexpr std::array ends{"<EOR>", "<eor>", "<EoR>"};
        constexpr std::array lineEnds{"\n", "\r\n", "", " \n\n"};
        m_isSmall = oneIn(5);
        m_separator = oneIn(6) ? "\r\n" : oneIn(6) ? "" : " ";
        addField("CALL", "ON" + std::to_string(below(10)) + "ABC");
        addField("QSO_DATE", "20260621");
        addField("TIME_ON", std::to_string(100000 + below(100000)));
        addPlace();
        if (oneIn(8))
            addField("ANT_PATH", oneIn(2) ? "L" : "S");
        for (std::size_t i = 0; i < 25; ++i) {
            if (oneIn(8))
                addOddField();
            else
                addField("APP_TEST_" + std::to_string(i),
                         std::string_view("abcdefghijklmno").substr(0, 1 + below(14)));
        }
        m_log += m_isOdd ? ends.at(below(ends.size())) : ends.at(0);
        m_log += m_isOdd ? lineEnds.at(below(lineEnds.size())) : lineEnds.at(0);
    }

    std::mt19937 m_random{20151};
    bool m_isOdd;
    bool m_isSmall = false;
    const char* m_separator = " ";
    std::string m_log;
};

} // namespace

std::string madeLog(std::size_t contacts, LogKind kind) {
    return LogMaker(kind).make(contacts);
}

std::string madeLocator(std::size_t number) {
    const auto next = [&](char first, std::size_t cells) {
        const char character = static_cast<char>(static_cast<std::size_t>(first) + number % cells);
        number /= cells;
        return character;
    };
    return {next('A', 18), next('A', 18), next('0', 10),
            next('0', 10), next('A', 24), next('A', 24)};
}

} // namespace orbisgrid::test
