#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orbisgrid::test {

/// The parts of an INI file that a test wants to choose; every other line is as the program writes
/// it. `homeLines` and `targetLines` are whole lines with their line ends.
struct IniText {
    std::string titleNote = ";";
    std::string defaultHome;
    std::string defaultTarget;
    std::string stayOnTop = " 0 ";
    std::string homeLines;
    std::string homeEnd = "[**end**]\r\n";
    std::string targetLines;
    std::string noCheckLabel = "[NoCheckWebUpdates]";
    std::string noCheck = " 0 ";
    std::string remember = " 0 ";
    std::string left = " 0 ";
    std::string top = " 0 ";

    std::string bytes() const {
        const std::string_view crlf = "\r\n";
        std::string all = ";Orbisgrid, by ZZ9QX (c)2002-2015 version 3.1.1\r\n";
        for (const std::string& line : {titleNote, std::string("[Default home]"), defaultHome,
                                        std::string("[Default Target]"), defaultTarget,
                                        std::string("[StayonTop]"), stayOnTop})
            all.append(line).append(crlf);
        all += "[Home data]\r\n" + homeLines + homeEnd;
        all += "[Target data]\r\n" + targetLines + "[**end**]\r\n";
        for (const std::string& line :
             {noCheckLabel, noCheck, std::string("[RememberPosition]"), remember,
              std::string("[Left]"), left, std::string("[Top]"), top})
            all.append(line).append(crlf);
        return all;
    }
};

/// A list's lines of its entries, which are separated by commas.
inline std::string listLines(std::string_view entries) {
    std::string lines;
    for (std::size_t end = 0; !entries.empty() && end != std::string_view::npos;) {
        end = entries.find(',');
        lines.append(entries.substr(0, end)).append("\r\n");
        entries.remove_prefix(end == std::string_view::npos ? 0 : end + 1);
    }
    return lines;
}

/// `count` lines L1, L2, … as list lines.
inline std::string numberedLines(std::size_t count) {
    std::string lines;
    for (std::size_t i = 1; i <= count; ++i)
        lines.append("L").append(std::to_string(i)).append("\r\n");
    return lines;
}

} // namespace orbisgrid::test
