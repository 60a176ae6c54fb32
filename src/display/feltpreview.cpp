#include "display/feltpreview.h"

#include <QPainter>

#include "display/felt/felttransform.h"
#include "display/tablepicture.h"
#include "table/crapcnst.h"
#include "table/screen.h"
#include "table/session.h"

namespace tarnwick {

namespace {

constexpr double NarrowestTable = 500;
constexpr double HeightOfTable = 0.4487;  ///< in widths

}  // namespace

FeltPreview::FeltPreview(const Table& t, QWidget* parent) : QWidget(parent), T(t) {
    setObjectName(QStringLiteral("picPreview"));
    setAccessibleName(tr("The table in these colors"));
}

FeltPreview::~FeltPreview() {
    if (Sample != nullptr) Sample->Front = nullptr;
}

void FeltPreview::Refresh() {
    Picture = {};
    update();
}

void FeltPreview::TakeLook() {
    if (Sample == nullptr) {
        Front = std::make_unique<SilentScreen>();
        Sample = std::make_unique<Table>();
        SubMain(*Sample, Front.get());
        PlayTypicalGame(*Sample);
    }
    Sample->TableColors = T.TableColors;
    Sample->SpotlightLevel = T.SpotlightLevel;
    Sample->CheckDenominations = T.CheckDenominations;
    Sample->UseCentsSymbol = T.UseCentsSymbol;
    Sample->CheckPicture = T.CheckPicture;
    Sample->DieFacePicture = T.DieFacePicture;
    Sample->TexturePicture = T.TexturePicture;
    Sample->UseBig68 = T.UseBig68;
    Sample->UseMidwayBet = T.UseMidwayBet;
    Sample->UseFireBet = T.UseFireBet;
    Sample->DisplayCenterProps = T.DisplayCenterProps;
}

void FeltPreview::paintEvent(QPaintEvent*) {
    const double ratio = devicePixelRatioF();
    if (Picture.isNull() || PictureSize != size() || Picture.devicePixelRatio() != ratio) {
        TakeLook();
        // A table is never drawn narrower than this; a smaller one is shown smaller.
        const double shrunk = qMin(1.0, qMin(width() / NarrowestTable, height() / (NarrowestTable * HeightOfTable)));
        const QSize window = (QSizeF(size()) / shrunk).toSize();
        HeldCentre held;
        AutoSize(*Sample, held, window);
        // Painters know no ratio below 1.
        const QImage image = TablePicture(*Sample, window, qMax(1.0, ratio * shrunk));
        const QSize pixels = (QSizeF(size()) * ratio).toSize();
        Picture = QPixmap::fromImage(image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        Picture.setDevicePixelRatio(ratio);
        PictureSize = size();
    }
    QPainter(this).drawPixmap(rect(), Picture);
}

}  // namespace tarnwick
