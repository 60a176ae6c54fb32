// The floor of the room, the padded rail, the wooden rack and the bare felt, shaded pixel by pixel.
#pragma once

#include <QColor>
#include <QString>
#include <QTransform>
#include <vector>

class QImage;

namespace tarnwick {

struct SurfaceColors {
    QColor Felt, Rack, Rail, Floor;
};

/// The room's textures, by TexturePicture.
const std::vector<QString>& FloorTextures();

/// Fills a 32-bit image. `tableToPixels` is a turn, a scale and a shift. `spotlight` 0..3 darkens the room outside the
/// table; `texture` outside its list is the plain floor.
void ShadeSurface(QImage& image, const QTransform& tableToPixels, const SurfaceColors& colors, int spotlight,
                  int texture);

}  // namespace tarnwick
