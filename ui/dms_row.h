#pragma once

#include "panels/converter.h"

#include <QString>

#include <array>

class QComboBox;
class QLayout;
class QLineEdit;

namespace orbisgrid {

/// One coordinate of the degrees/minutes/seconds panel: three boxes and a hemisphere list, bound to
/// their values.
struct DmsRow {
    /// What tells latitude and longitude apart.
    struct Wording {
        QString boxes;         ///< objectName of the boxes without their index: "txtlatdms"
        QString list;          ///< objectName of the hemisphere list
        QString coordinate;    ///< "Latitude"
        QString degreesTip;    ///< "degrees (0...90)"
        QString hemisphereTip; ///< "Compass direction: North/South"
        QString secondsMark;   ///< objectName of the label behind the seconds
        int markIndex = 0;     ///< index of the degree and minute marks
    };

    std::array<QLineEdit*, 3> boxes{};
    QComboBox* hemisphere = nullptr;

    static DmsRow make(const Wording& wording, std::array<TextBox, 3>& values,
                       HemisphereList& list);

    /// The boxes with their marks behind them, then the list.
    QLayout* layout(const Wording& wording) const;

    void show(const std::array<TextBox, 3>& values, const HemisphereList& list);
};

} // namespace orbisgrid
