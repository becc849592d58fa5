#include "formwizard/MenuLeiste.h"

#include <QFontMetrics>
#include <QLinearGradient>
#include <QPainter>
#include <QPointer>
#include <QWidget>

#include "foundation/Language.h"
#include "host/platform/ErrorDialog.h"

namespace vorelle {

namespace {

const QColor kFadeFrom(0x02, 0x27, 0xaa);
const QColor kFadeTo(0x88, 0x88, 0xc0);

class MenuLeisteWindow : public QWidget {
public:
    MenuLeisteWindow()
        : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                               Qt::WindowDoesNotAcceptFocus) {
        setObjectName(QStringLiteral("frmMenuLeiste"));
        setAttribute(Qt::WA_ShowWithoutActivating);
        setAttribute(Qt::WA_DeleteOnClose);
        QFont f(QStringLiteral("Arial"));
        f.setPointSizeF(8.25);
        f.setBold(true);
        setFont(f);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        if (!p.isActive()) {
            ErrorDialog(QStringLiteral("FontEffect"), IsGerman() ? kShortageDe : kShortageEn,
                        99999);
            return;
        }
        QLinearGradient fade(0, 0, width(), 0);
        fade.setColorAt(0, kFadeFrom);
        fade.setColorAt(1, kFadeTo);
        p.fillRect(rect(), fade);
        // Arial, or the small screen font where the text is too small for it.
        QFont f = font();
        if (QFontMetrics(f).height() < 10) {
            f.setFamily(QStringLiteral("Small Fonts"));
        }
        p.setFont(f);
        const QFontMetrics fm(f);
        const int y = (height() - fm.height()) / 2 + fm.ascent();
        int x = 4;
        for (const QChar c : windowTitle()) {
            p.setPen(QColor(0, 0, 0));
            p.drawText(x + 1, y + 1, QString(c));
            p.setPen(QColor(255, 255, 255));
            p.drawText(x, y, QString(c));
            x += fm.horizontalAdvance(c);
        }
    }

private:
    static inline const QString kShortageDe = QStringLiteral(
        "System-Ressourcen sind erschöpft. Grafikfunktion 'Schrifteffekt' kann nicht "
        "ausgeführt werden. Bitte beenden Sie andere Programme, um Ressourcen frei zu machen "
        "oder starten Sie den Rechner neu.");
    static inline const QString kShortageEn = QStringLiteral(
        "System ressources are used up. The grafical function 'font effect' cannot be "
        "executed. Please terminate other running programs to free ressources or restart "
        "Computer.");
};

QPointer<MenuLeisteWindow>& banner() {
    static QPointer<MenuLeisteWindow> window;
    return window;
}

}  // namespace

void MenuLeisteShow(const QString& MenuCaption, int xPos, int yPos, int Width, int Height) {
    if (!banner()) {
        banner() = new MenuLeisteWindow;
    }
    banner()->setWindowTitle(MenuCaption);
    banner()->setGeometry(xPos, yPos, Width, Height);
    banner()->show();
    banner()->update();
}

void MenuLeisteHide() {
    delete banner().data();
}

QWidget* MenuLeisteForm() {
    return banner().data();
}

}  // namespace vorelle
