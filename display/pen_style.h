// SPDX-License-Identifier: MIT
// The style that draws every widget of the process with the pens that it wears.
//
// It takes sizes and behaviour from the GUI library's plainest style and draws everything itself.
#pragma once

#include "display/held_arrows.h"
#include "display/worn.h"

#include <QProxyStyle>

#include <optional>

class PenStyle : public QProxyStyle {
public:
    // A property that labels have which wear the Small font.
    static constexpr const char* kNote = "note";
    // A property of what draws a level (a ks_pen) under the widgets in it; other texts lie on Low.
    static constexpr const char* kLevel = "level";

    PenStyle();

    // The process's style; it exists from `Install` on, which is called before the application object is
    // made.
    static PenStyle& Instance();
    static void Install();

    const Worn& Wearing() const { return *_worn; }
    // The height of a group's title.
    int TitleHeight() const { return _title_height; }
    // Sets palette and fonts and draws every window again.
    void Wear(Worn worn);

    void polish(QWidget* widget) override;
    void unpolish(QWidget* widget) override;
    using QProxyStyle::polish;
    using QProxyStyle::unpolish;
    QPalette standardPalette() const override;
    void drawItemText(QPainter* painter, const QRect& rect, int flags, const QPalette& palette,
                      bool is_enabled, const QString& text, QPalette::ColorRole role) const override;
    // Also follows the look where an icon was made before.
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;

protected:
    // Paints the levels of windows and lists below, and the block cursor over, what the widgets paint.
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void PaintPanel(QPainter& painter, const QStyleOption& option, const QWidget* widget) const;
    void DrawButtonLabel(QPainter& painter, const QStyleOption& option) const;
    void DrawMenuItem(QPainter& painter, const QStyleOption& option) const;
    void DrawSpinBox(QPainter& painter, const QStyleOptionComplex& option, const QWidget* widget) const;
    void DrawComboBox(QPainter& painter, const QStyleOptionComplex& option, const QWidget* widget) const;
    void DrawScrollBar(QPainter& painter, const QStyleOptionComplex& option, const QWidget* widget) const;
    void DrawSlider(QPainter& painter, const QStyleOptionComplex& option, const QWidget* widget) const;
    void DrawToolButton(QPainter& painter, const QStyleOptionComplex& option, const QWidget* widget) const;

    std::optional<Worn> _worn;  // from the first Wear on; pixmaps need the application object
    int _title_height = 0;
    HeldArrows _held_arrows;
};
