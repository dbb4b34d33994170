#include "platform/qt/FormPosition.h"

#include "platform/qt/AddInWindow.h"
#include "services/SettingsAccess.h"

#include <QRect>
#include <QScreen>
#include <QWidget>
#include <optional>

namespace {
QString formsKey(const QString& rootKey)
{
    return rootKey + QStringLiteral("Forms\\");
}

// The screen's available area in twips, from its own top left corner.
QSize screenSize(const QWidget& form)
{
    return form.screen()->availableGeometry().size() * TwipsPerPixel;
}

// The form's place in twips, from the top left corner of the screen's available area.
QRectF formPlace(const QWidget& form)
{
    const QPoint origin = form.screen()->availableGeometry().topLeft();
    return QRectF(QPointF(form.pos() - origin) * TwipsPerPixel,
                  QSizeF(form.size()) * TwipsPerPixel);
}

void moveForm(QWidget& form, double left, double top)
{
    const QPoint origin = form.screen()->availableGeometry().topLeft();
    form.move(origin + QPoint(qRound(left / TwipsPerPixel), qRound(top / TwipsPerPixel)));
}

bool liesInsideScreen(const QRectF& place, const QSize& screen)
{
    return place.top() > 0 && place.top() + place.height() < screen.height() && place.left() > 0 &&
           place.left() + place.width() < screen.width();
}

// "scale,top,left,width,height," with a comma after each; what doesn't read counts as
// missing.
std::optional<QRectF> parsePlace(const QString& text)
{
    const QStringList fields = text.split(QLatin1Char(','));
    // Five fields each closed by a comma leave one more, possibly empty, behind the last.
    if (fields.size() < 6)
        return std::nullopt;
    bool read = false;
    const qint16 scaleMode = fields.at(0).toShort(&read);
    if (!read || scaleMode != TwipsScaleMode)
        return std::nullopt;
    float numbers[4];
    for (int i = 0; i < 4; ++i) {
        numbers[i] = fields.at(i + 1).toFloat(&read);
        if (!read)
            return std::nullopt;
    }
    const auto [top, left, width, height] = numbers;
    return QRectF(left, top, width, height);
}
} // namespace

void SaveFormPosition(QWidget& form, const QString& name, const QString& rootKey)
{
    const QRectF place = formPlace(form);
    if (!liesInsideScreen(place, screenSize(form)))
        return;
    QVariant value = QString::number(TwipsScaleMode) + QLatin1Char(',') +
                     QString::number(float(place.top())) + QLatin1Char(',') +
                     QString::number(float(place.left())) + QLatin1Char(',') +
                     QString::number(float(place.width())) + QLatin1Char(',') +
                     QString::number(float(place.height())) + QLatin1Char(',');
    TransferValueEx(HKEY_LOCAL_MACHINE, formsKey(rootKey), TransferWrite, REG_SZ, name, value,
                    QString(), false);
}

void RestoreFormPosition(QWidget& form, const QString& name, const QString& rootKey)
{
    QVariant value;
    TransferValueEx(HKEY_LOCAL_MACHINE, formsKey(rootKey), TransferRead, REG_SZ, name, value,
                    QString(), false);
    const std::optional<QRectF> place = parsePlace(value.toString());
    if (!place) {
        CentreForm(form);
        return;
    }
    if (!liesInsideScreen(*place, screenSize(form)))
        return;
    moveForm(form, place->left(), place->top());
    form.resize(qRound(place->width() / TwipsPerPixel), qRound(place->height() / TwipsPerPixel));
}

void CentreForm(QWidget& form)
{
    if (form.windowState() & (Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen))
        return;
    // A form with an owner window keeps its place.
    if (form.parentWidget())
        return;
    const QSize screen = screenSize(form);
    const QRectF place = formPlace(form);
    moveForm(form, int((screen.width() - place.width()) / 2),
             int((screen.height() - place.height()) / 2));
}

void ShowForm(QWidget& form, bool overOwner)
{
    if (overOwner)
        CentreOverWindow(AddInWindow(), form);
    form.showNormal();
}

void CentreOverWindow(QWidget* window, QWidget& form)
{
    const QSize screen = screenSize(form);
    const QPoint origin = form.screen()->availableGeometry().topLeft();
    const QPointF centre =
        window ? (QRectF(window->frameGeometry()).center() - QPointF(origin)) * TwipsPerPixel
               : QPointF(screen.width(), screen.height()) / 2;
    const QRectF place = formPlace(form);
    double left = qRound(centre.x() - place.width() / 2);
    double top = qRound(centre.y() - place.height() / 2);
    if (left < 0)
        left = 0;
    if (left + place.width() > screen.width())
        left = screen.width() - place.width();
    if (top < 0)
        top = 0;
    if (top + place.height() > screen.height())
        top = screen.height() - place.height();
    moveForm(form, left, top);
}
