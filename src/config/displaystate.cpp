#include "config/displaystate.h"

#include <algorithm>
#include <cmath>

namespace tarnwick {

void SetTableAngle(TableView& view, std::int32_t degrees) {
    constexpr double radiansOfDegree = 0.017453292519943278;
    view.TableAngle = (degrees % 360 + 360) % 360;
    view.TableCos = std::cos(view.TableAngle * radiansOfDegree);
    view.TableSin = std::sin(view.TableAngle * radiansOfDegree);
}

void SetTableWidth(TableView& view, std::int32_t pixels) {
    constexpr double ownWidth = 1248;
    view.TableWidth = std::clamp(pixels, 500, 5000);
    view.TableScale = view.TableWidth / ownWidth;
}

}  // namespace tarnwick
