#include "display/feltpreview.h"

#include <QPainter>

#include "display/felt/felttransform.h"
#include "display/tablepicture.h"
#include "table/crapcnst.h"
#include "table/screen.h"
#include "table/session.h"

namespace tarnwick {

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
    if (Picture.isNull() || Picture.size() != (QSizeF(size()) * ratio).toSize()) {
        TakeLook();
        HeldCentre held;
        AutoSize(*Sample, held, size());
        Picture = QPixmap::fromImage(TablePicture(*Sample, size(), ratio));
        Picture.setDevicePixelRatio(ratio);
    }
    QPainter(this).drawPixmap(0, 0, Picture);
}

}  // namespace tarnwick
