// SPDX-License-Identifier: MIT
#include "display/pen_style.h"

#include "display/contrast.h"
#include "display/draw.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QEvent>
#include <QGroupBox>
#include <QIconEngine>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace {

PenStyle* the_style;

constexpr int kArrowWidth = 18;   // of a spin box
constexpr int kCheckSize = 16;    // of a check box and its place in a menu
constexpr int kLeastHeight = 24;  // of a line to type in
constexpr int kFocusInset = 5;    // of the ring inside a button

bool Has(const QStyleOption& option, QStyle::StateFlag flag) {
    return option.state.testFlag(flag);
}

bool Has(const QStyleOptionComplex& option, QStyle::SubControl part) {
    return option.activeSubControls.testFlag(part) && Has(option, QStyle::State_Sunken);
}

// A line inside a spin box or an editable combo box, whose frame is the box's.
bool IsInsideBox(const QWidget* widget) {
    const QWidget* parent = widget ? widget->parentWidget() : nullptr;
    return qobject_cast<const QAbstractSpinBox*>(parent) || qobject_cast<const QComboBox*>(parent);
}

QAbstractItemView* ViewOf(const QWidget* viewport) {
    auto* view = viewport ? qobject_cast<QAbstractItemView*>(viewport->parentWidget()) : nullptr;
    return view && view->viewport() == viewport ? view : nullptr;
}

draw::ButtonState ButtonStateOf(const QStyleOption& option) {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    return {.is_down = Has(option, QStyle::State_Sunken) || Has(option, QStyle::State_On),
            .is_default = button && button->features.testFlag(QStyleOptionButton::DefaultButton),
            .is_enabled = Has(option, QStyle::State_Enabled)};
}

// The button in a line that clears it.
class ClearIcon : public QIconEngine {
public:
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override {
        const Worn& worn = the_style->Wearing();
        const QColor ground = worn.Ground(KS_PEN_BG_EDIT);
        const double size = std::min(rect.width(), rect.height());
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(QRectF(rect).center());
        painter->setPen(Qt::NoPen);
        painter->setBrush(Mix(ground, worn.On(KS_PEN_TEXT, ground), 0.75));
        painter->drawEllipse(QPointF(), size * 0.42, size * 0.42);
        painter->setPen(QPen(ground, size * 0.12, Qt::SolidLine, Qt::RoundCap));
        const double arm = size * 0.16;
        painter->drawLine(QPointF(-arm, -arm), QPointF(arm, arm));
        painter->drawLine(QPointF(-arm, arm), QPointF(arm, -arm));
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }
    QIconEngine* clone() const override { return new ClearIcon(*this); }
};

ks_pen TextPen(bool is_enabled) {
    return is_enabled ? KS_PEN_TEXT : KS_PEN_DISABLEDTEXT;
}

}  // namespace

PenStyle::PenStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Windows"))) {}

PenStyle& PenStyle::Instance() {
    return *the_style;
}

void PenStyle::Install() {
    QApplication::setStyle(the_style = new PenStyle);
}

QPalette PenStyle::standardPalette() const {
    if (!_worn)
        return QProxyStyle::standardPalette();
    const Worn& w = *_worn;
    const QColor low = w.Ground(KS_PEN_BG_LOW), high = w.Ground(KS_PEN_BG_HIGH),
                 edit = w.Ground(KS_PEN_BG_EDIT), button = w.Ground(KS_PEN_BG_BUTTON),
                 marked = Over(w.Pen(KS_PEN_TEXT_BG_MARKED), edit);
    QPalette palette;
    const auto set = [&](QPalette::ColorRole role, const QColor& color) {
        palette.setColor(QPalette::All, role, color);
    };
    set(QPalette::Window, low);
    set(QPalette::WindowText, w.On(KS_PEN_TEXT, low));
    set(QPalette::Base, edit);
    set(QPalette::AlternateBase, w.Ground(KS_PEN_BG_READ));
    set(QPalette::Text, w.On(KS_PEN_TEXT, edit));
    set(QPalette::PlaceholderText, w.On(KS_PEN_DISABLEDTEXT, edit));
    set(QPalette::Button, button);
    set(QPalette::ButtonText, w.On(KS_PEN_TEXT, button));
    set(QPalette::BrightText, w.On(KS_PEN_MARK, low));
    set(QPalette::Link, w.On(KS_PEN_PAINTDARK, low));
    set(QPalette::LinkVisited, w.On(KS_PEN_PAINTDARK, low));
    set(QPalette::Highlight, marked);
    set(QPalette::HighlightedText, w.On(KS_PEN_TEXT_FG_MARKED, marked));
    set(QPalette::Light, w.Edge(KS_PEN_SHINE, high));
    set(QPalette::Midlight, w.Edge(KS_PEN_HALFSHINE, high));
    set(QPalette::Mid, w.Edge(KS_PEN_HALFDARK, high));
    set(QPalette::Dark, w.Edge(KS_PEN_HALFDARK, high));
    set(QPalette::Shadow, w.Edge(KS_PEN_DARK, high));
    set(QPalette::ToolTipBase, high);
    set(QPalette::ToolTipText, w.On(KS_PEN_TEXT, high));
    palette.setColor(QPalette::Disabled, QPalette::WindowText, w.On(KS_PEN_DISABLEDTEXT, low));
    palette.setColor(QPalette::Disabled, QPalette::Text, w.On(KS_PEN_DISABLEDTEXT, w.Ground(KS_PEN_BG_READ)));
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, w.On(KS_PEN_DISABLEDTEXT, button));
    return palette;
}

// Lists have a level, a text and a selection of their own.
static QPalette ListPalette(const Worn& w, QPalette palette) {
    const QColor list = w.Ground(KS_PEN_BG_LIST), selected = w.Ground(KS_PEN_BG_SELECTED);
    palette.setColor(QPalette::All, QPalette::Base, list);
    palette.setColor(QPalette::All, QPalette::AlternateBase, list);
    palette.setColor(QPalette::All, QPalette::Text, w.On(KS_PEN_TEXT, list));
    palette.setColor(QPalette::Disabled, QPalette::Text, w.On(KS_PEN_DISABLEDTEXT, list));
    palette.setColor(QPalette::All, QPalette::Highlight, selected);
    palette.setColor(QPalette::All, QPalette::HighlightedText, w.On(KS_PEN_TEXT, selected));
    return palette;
}

void PenStyle::Wear(Worn worn) {
    const bool is_laid_out_anew =
        !_worn || worn.Look().fonts != _worn->Look().fonts || worn.IsNymbrel() != _worn->IsNymbrel();
    _worn = std::move(worn);
    _title_height = QFontMetrics(_worn->Font(KS_FONT_TITLE)).height() + 5;
    const QPalette palette = standardPalette();
    if (palette != QApplication::palette()) {
        QApplication::setPalette(palette);
        QApplication::setPalette(ListPalette(*_worn, palette), "QAbstractItemView");
        QToolTip::setPalette(palette);
    }
    const QFont normal = _worn->Font(KS_FONT_NORMAL), fixed = _worn->Font(KS_FONT_FIXED),
                small = _worn->Font(KS_FONT_SMALL);
    const auto set = [](const QFont& font, const char* kind) {
        if (QApplication::font(kind) != font)
            QApplication::setFont(font, kind);
    };
    if (QApplication::font() != normal)
        QApplication::setFont(normal);
    set(fixed, "QLineEdit");
    set(fixed, "QAbstractSpinBox");
    if (QToolTip::font() != small)
        QToolTip::setFont(small);
    for (QWidget* top : QApplication::topLevelWidgets()) {
        if (!top->isVisible())
            continue;
        // A group makes room for its title when its style changes.
        if (is_laid_out_anew)
            for (QGroupBox* group : top->findChildren<QGroupBox*>()) {
                QEvent change(QEvent::StyleChange);
                QApplication::sendEvent(group, &change);
            }
        top->update();
        for (QWidget* widget : top->findChildren<QWidget*>()) {
            if (is_laid_out_anew && widget->property(kNote).toBool())
                widget->setFont(small);
            widget->update();
        }
    }
}

void PenStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    widget->setAttribute(Qt::WA_Hover, false);
    _held_arrows.Watch(widget);
    if (ViewOf(widget)) {
        // Not opaque, so that scrolling draws it again: a bitmap stays in its place.
        widget->setAutoFillBackground(false);
        widget->installEventFilter(this);
    } else if (qobject_cast<QDialog*>(widget)) {
        widget->installEventFilter(this);
    } else if (widget->property(kNote).toBool()) {
        widget->setFont(_worn->Font(KS_FONT_SMALL));
    } else if (auto* line = qobject_cast<QLineEdit*>(widget)) {
        line->installEventFilter(this);
        // The block is wider than the line that Qt draws again by itself.
        QObject::connect(line, &QLineEdit::cursorPositionChanged, line, qOverload<>(&QWidget::update));
    }
}

void PenStyle::unpolish(QWidget* widget) {
    widget->removeEventFilter(this);
    if (ViewOf(widget))
        widget->setAutoFillBackground(true);
    QProxyStyle::unpolish(widget);
}

// Draws the letter at the cursor in the cursor's own pens.
static void PaintCursor(QLineEdit& line, const Worn& worn) {
    QRect bar = line.inputMethodQuery(Qt::ImCursorRectangle).toRectF().toRect();
    const QFontMetrics metrics = line.fontMetrics();
    const bool shows_text = line.echoMode() == QLineEdit::Normal;
    const QString letter = shows_text ? line.text().mid(line.cursorPosition(), 1) : QString();
    const int width = std::max(metrics.horizontalAdvance(letter.isEmpty() ? QStringLiteral(" ") : letter), 3);
    const int left = bar.center().x();
    const QRect block(left, bar.top(), width, bar.height());
    QPainter painter(&line);
    painter.setClipRect(line.rect().adjusted(2, 2, -2, -2));
    const QColor ground = Over(worn.Pen(KS_PEN_TEXT_FG_CURSOR), worn.Ground(KS_PEN_BG_EDIT));
    painter.fillRect(block, ground);
    if (letter.isEmpty() || letter.isRightToLeft())
        return;
    painter.setFont(line.font());
    painter.setPen(worn.On(KS_PEN_TEXT_BG_CURSOR, ground));
    painter.drawText(block.left(), block.top() + metrics.ascent(), letter);
}

bool PenStyle::eventFilter(QObject* object, QEvent* event) {
    if (event->type() != QEvent::Paint)
        return QProxyStyle::eventFilter(object, event);
    auto* widget = static_cast<QWidget*>(object);
    if (const QAbstractItemView* view = ViewOf(widget)) {
        QPainter painter(widget);
        const bool reads = !view->isEnabled();
        draw::Level(painter, *_worn, widget->rect(), reads ? KS_PEN_BG_READ : KS_PEN_BG_LIST,
                    widget->mapFromParent(QPoint()));
    } else if (auto* line = qobject_cast<QLineEdit*>(widget)) {
        object->event(event);
        if (line->hasFocus() && !line->isReadOnly() && !line->hasSelectedText())
            PaintCursor(*line, *_worn);
        return true;
    } else {
        QPainter painter(widget);
        draw::Level(painter, *_worn, widget->rect(), KS_PEN_BG_LOW, QPoint());
    }
    return false;
}

// The text stands out from the level that it lies on.
void PenStyle::drawItemText(QPainter* painter, const QRect& rect, int flags, const QPalette& palette,
                            bool is_enabled, const QString& text, QPalette::ColorRole role) const {
    QPalette own = palette;
    if (role == QPalette::WindowText) {
        const auto* ground = dynamic_cast<const QWidget*>(painter->device());
        while (ground && !ground->property(kLevel).isValid())
            ground = ground->parentWidget();
        const int level = ground ? ground->property(kLevel).toInt() : int{KS_PEN_BG_LOW};
        own.setColor(role, _worn->On(is_enabled ? KS_PEN_TEXT : KS_PEN_DISABLEDTEXT,
                                     _worn->Ground(static_cast<ks_pen>(level))));
    }
    QProxyStyle::drawItemText(painter, rect, flags, own, is_enabled, text, role);
}

QIcon PenStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const {
    return icon == SP_LineEditClearButton ? QIcon(new ClearIcon)
                                          : QProxyStyle::standardIcon(icon, option, widget);
}

// What is not a number becomes the least.
static int Milliseconds(float microseconds, float least, float most) {
    return static_cast<int>(std::fmin(std::fmax(microseconds / 1000, least), most));
}

int PenStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                        QStyleHintReturn* result) const {
    switch (hint) {
    case SH_EtchDisabledText:
    case SH_DitherDisabledText:
    case SH_ComboBox_Popup:
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_Widget_Animate:
    case SH_Widget_Animation_Duration:
    case SH_Menu_SloppySubMenus:
        return 0;
    case SH_UnderlineShortcut:
    case SH_ItemView_ShowDecorationSelected:
    case SH_ScrollBar_MiddleClickAbsolutePosition:
        return 1;
    case SH_ToolTip_WakeUpDelay:
        return Milliseconds(_worn->Look().bubble_wait, 100, 30000);
    case SH_SpinBox_ClickAutoRepeatRate:
        return Milliseconds(_worn->Look().mouse_hold, 1, 1000);
    default:
        return QProxyStyle::styleHint(hint, option, widget, result);
    }
}

int PenStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
    case PM_DefaultFrameWidth:
    case PM_ComboBoxFrameWidth:
    case PM_SpinBoxFrameWidth:
    case PM_MenuPanelWidth:
    case PM_FocusFrameVMargin:
        return 2;
    case PM_FocusFrameHMargin:  // beside the texts of lists: more than a selected row's mark
        return 5;
    case PM_ButtonDefaultIndicator:
    case PM_TextCursorWidth:  // the block is drawn in its place
        return 0;
    case PM_ButtonMargin:
        return 8;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ScrollBarExtent:
        return kCheckSize;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
        return 1;
    case PM_SliderThickness:
    case PM_SliderControlThickness:
        return 22;
    case PM_SliderLength:
        return 12;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

QSize PenStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                 const QWidget* widget) const {
    QSize result = QProxyStyle::sizeFromContents(type, option, size, widget);
    switch (type) {
    case CT_PushButton:
        return result.expandedTo({84, 28});
    case CT_ItemViewItem:
        result.rheight() += 2;
        return result;
    case CT_ComboBox:
        result.rwidth() += 14;
        [[fallthrough]];
    case CT_LineEdit:
        if (IsInsideBox(widget))
            return result;
        [[fallthrough]];
    case CT_SpinBox:
        result.setHeight(std::max(result.height(), kLeastHeight));
        return result;
    default:
        return result;
    }
}

QRect PenStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                               const QWidget* widget) const {
    const QRect box = option->rect, inside = box.adjusted(2, 2, -2, -2);
    const auto mirrored = [&](const QRect& rect) { return visualRect(option->direction, box, rect); };
    if (control == CC_SpinBox) {
        const QRect arrows(inside.right() - kArrowWidth + 1, inside.top(), kArrowWidth, inside.height());
        const int half = arrows.height() / 2;
        switch (part) {
        case SC_SpinBoxUp:
            return mirrored(arrows.adjusted(0, 0, 0, half - arrows.height()));
        case SC_SpinBoxDown:
            return mirrored(arrows.adjusted(0, half, 0, 0));
        case SC_SpinBoxEditField:
            return mirrored(inside.adjusted(1, 1, -kArrowWidth - 2, -1));
        default:
            return box;
        }
    }
    if (control == CC_GroupBox) {
        const auto* group = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
        const int title = group && !group->text.isEmpty() ? _title_height : 0;
        return part == SC_GroupBoxContents ? box.adjusted(0, title, 0, 0) : box;
    }
    if (control == CC_ComboBox && part == SC_ComboBoxArrow)
        return mirrored(QRect(inside.right() - 19, inside.top(), 20, inside.height()));
    if (control == CC_ComboBox && part == SC_ComboBoxEditField)
        return mirrored(box.adjusted(9, 2, -24, -2));
    return QProxyStyle::subControlRect(control, option, part, widget);
}

// The frame and the level of what stands by itself: a line, a list, a menu, a sunken label.
void PenStyle::PaintPanel(QPainter& painter, const QStyleOption& option, const QWidget* widget) const {
    const bool is_view = qobject_cast<const QAbstractItemView*>(widget);
    if (is_view) {
        const QColor ground = _worn->Ground(KS_PEN_BG_LIST);
        draw::Edges(painter, *_worn, option.rect, draw::Edge::kSunken, draw::Weight::kHeavy, ground);
        if (widget->hasFocus())
            draw::Focus(painter, *_worn,
                        _worn->IsNymbrel() ? option.rect : option.rect.adjusted(1, 1, -1, -1), ground);
    } else if (qobject_cast<const QLabel*>(widget)) {
        draw::Field(painter, *_worn, option.rect, KS_PEN_BG_READ);
    } else {
        draw::Edges(painter, *_worn, option.rect,
                    Has(option, State_Raised) ? draw::Edge::kRaised : draw::Edge::kSunken,
                    draw::Weight::kHeavy, _worn->Ground(KS_PEN_BG_LOW));
    }
}

void PenStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
    const QRect rect = option->rect;
    const bool is_enabled = Has(*option, State_Enabled);
    switch (element) {
    case PE_PanelLineEdit:
    case PE_FrameLineEdit: {
        if (IsInsideBox(widget))
            return;
        const ks_pen level = is_enabled && !Has(*option, State_ReadOnly) ? KS_PEN_BG_EDIT : KS_PEN_BG_READ;
        draw::Field(*painter, *_worn, rect, level);
        if (Has(*option, State_HasFocus))
            draw::Focus(*painter, *_worn, _worn->IsNymbrel() ? rect : rect.adjusted(1, 1, -1, -1),
                        _worn->Ground(level));
        return;
    }
    case PE_Frame:
    case PE_FrameWindow:
        PaintPanel(*painter, *option, widget);
        return;
    case PE_PanelMenu:
        draw::Level(*painter, *_worn, rect, KS_PEN_BG_LIST, rect.topLeft());
        return;
    case PE_FrameMenu:
        draw::Edges(*painter, *_worn, rect, draw::Edge::kRaised, draw::Weight::kHeavy,
                    _worn->Ground(KS_PEN_BG_LIST));
        return;
    case PE_PanelTipLabel:
        draw::Level(*painter, *_worn, rect, KS_PEN_BG_HIGH, rect.topLeft());
        draw::Edges(*painter, *_worn, rect, draw::Edge::kRaised, draw::Weight::kThin,
                    _worn->Ground(KS_PEN_BG_HIGH));
        return;
    case PE_FrameFocusRect:
        // In the Nymbrel look a list's own ring says it.
        if (!qobject_cast<const QAbstractItemView*>(widget) || !_worn->IsNymbrel())
            draw::Focus(*painter, *_worn, rect, _worn->Ground(KS_PEN_BG_HIGH));
        return;
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
        draw::Check(*painter, *_worn, rect, Has(*option, State_On), is_enabled, Has(*option, State_Sunken));
        return;
    case PE_PanelItemViewItem:
        if (Has(*option, State_Selected))
            draw::Selection(*painter, *_worn, rect);
        return;
    case PE_PanelItemViewRow:
        return;
    case PE_IndicatorArrowUp:
    case PE_IndicatorSpinUp:
    case PE_IndicatorHeaderArrow:
        draw::Arrow(*painter, rect, draw::Direction::kUp, painter->pen().color());
        return;
    case PE_IndicatorArrowDown:
    case PE_IndicatorSpinDown:
        draw::Arrow(*painter, rect, draw::Direction::kDown, painter->pen().color());
        return;
    case PE_IndicatorArrowLeft:
        draw::Arrow(*painter, rect, draw::Direction::kLeft, painter->pen().color());
        return;
    case PE_IndicatorArrowRight:
        draw::Arrow(*painter, rect, draw::Direction::kRight, painter->pen().color());
        return;
    case PE_PanelButtonTool:
    case PE_PanelButtonBevel:
    case PE_PanelButtonCommand:
        if (!widget || !qobject_cast<const QLineEdit*>(widget->parentWidget()))
            draw::Button(*painter, *_worn, rect, ButtonStateOf(*option));
        return;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void PenStyle::DrawButtonLabel(QPainter& painter, const QStyleOption& option) const {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    if (!button)
        return;
    const draw::ButtonState state = ButtonStateOf(option);
    const QColor ground = draw::ButtonGround(*_worn, state);
    const QRect rect = option.rect.translated(state.is_down, state.is_down);
    painter.setPen(_worn->On(TextPen(state.is_enabled), ground));
    painter.drawText(
        rect, Qt::AlignCenter | Qt::TextShowMnemonic,
        button->fontMetrics.elidedText(button->text, Qt::ElideRight, rect.width(), Qt::TextShowMnemonic));
    if (Has(option, State_HasFocus))
        draw::Focus(painter, *_worn,
                    option.rect.adjusted(kFocusInset, kFocusInset, -kFocusInset, -kFocusInset), ground);
}

void PenStyle::DrawMenuItem(QPainter& painter, const QStyleOption& option) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(&option);
    if (!item)
        return;
    const bool is_selected = Has(option, State_Selected) && Has(option, State_Enabled);
    const QColor ground = _worn->Ground(is_selected ? KS_PEN_BG_SELECTED : KS_PEN_BG_LIST);
    if (item->menuItemType == QStyleOptionMenuItem::Separator) {
        draw::EtchedLine(painter, *_worn, option.rect.adjusted(4, 0, -4, 0), ground);
        return;
    }
    if (is_selected)
        draw::Selection(painter, *_worn, option.rect);
    painter.setPen(_worn->On(TextPen(Has(option, State_Enabled)), ground));
    painter.setFont(item->font);
    QRect text = option.rect.adjusted(10, 0, -10, 0);
    const int gutter = item->menuHasCheckableItems ? kCheckSize + 8 : 0;
    if (gutter && item->checkType != QStyleOptionMenuItem::NotCheckable) {
        const QRect box(text.left(), text.center().y() - kCheckSize / 2, kCheckSize, kCheckSize);
        draw::Check(painter, *_worn, visualRect(option.direction, option.rect, box), item->checked,
                    Has(option, State_Enabled), false);
    }
    text.setLeft(text.left() + gutter);
    const QStringList parts = item->text.split(u'\t');
    text = visualRect(option.direction, option.rect, text);
    painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeading | Qt::TextShowMnemonic, parts.front());
    if (parts.size() > 1)
        painter.drawText(text, Qt::AlignVCenter | Qt::AlignTrailing, parts[1]);
    if (item->menuItemType == QStyleOptionMenuItem::SubMenu)
        draw::Arrow(painter,
                    visualRect(option.direction, option.rect,
                               QRect(option.rect.right() - 16, option.rect.top(), 14, option.rect.height())),
                    option.direction == Qt::RightToLeft ? draw::Direction::kLeft : draw::Direction::kRight,
                    painter.pen().color());
}

void PenStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                           const QWidget* widget) const {
    switch (element) {
    case CE_PushButtonBevel:
        draw::Button(*painter, *_worn, option->rect, ButtonStateOf(*option));
        return;
    case CE_PushButtonLabel:
        DrawButtonLabel(*painter, *option);
        return;
    case CE_MenuItem:
        DrawMenuItem(*painter, *option);
        return;
    case CE_MenuEmptyArea:
    case CE_MenuTearoff:
    case CE_SizeGrip:
    case CE_Splitter:
        return;
    case CE_ShapedFrame:
        if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option)) {
            if (frame->frameShape == QFrame::HLine || frame->frameShape == QFrame::VLine)
                draw::EtchedLine(*painter, *_worn, option->rect, _worn->Ground(KS_PEN_BG_LOW));
            else if (frame->frameShape != QFrame::NoFrame)
                PaintPanel(*painter, *option, widget);
        }
        return;
    case CE_HeaderSection:
    case CE_HeaderEmptyArea:
        draw::Knob(*painter, *_worn, option->rect, Has(*option, State_Sunken));
        return;
    case CE_ProgressBarGroove:
        draw::Level(*painter, *_worn, option->rect, KS_PEN_BG_SLIDER, option->rect.topLeft());
        draw::Edges(*painter, *_worn, option->rect, draw::Edge::kSunken, draw::Weight::kThin,
                    _worn->Ground(KS_PEN_BG_SLIDER));
        return;
    case CE_ProgressBarContents:
        if (const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option)) {
            const QRect all = option->rect.adjusted(1, 1, -1, -1);
            const double range = std::max(1, bar->maximum - bar->minimum);
            const int filled = static_cast<int>(all.width() * (bar->progress - bar->minimum) / range);
            draw::Paint(*painter, *_worn,
                        visualRect(bar->direction, all, QRect(all.left(), all.top(), filled, all.height())));
        }
        return;
    default:
        QProxyStyle::drawControl(element, option, painter, widget);
    }
}

void PenStyle::DrawSpinBox(QPainter& painter, const QStyleOptionComplex& option,
                           const QWidget* widget) const {
    const bool is_enabled = Has(option, State_Enabled);
    const ks_pen level = is_enabled ? KS_PEN_BG_EDIT : KS_PEN_BG_READ;
    draw::Field(painter, *_worn, option.rect, level);
    const auto* spin = qstyleoption_cast<const QStyleOptionSpinBox*>(&option);
    for (const SubControl part : {SC_SpinBoxUp, SC_SpinBoxDown}) {
        const QRect rect = subControlRect(CC_SpinBox, &option, part, widget);
        const bool is_up = part == SC_SpinBoxUp, is_down = Has(option, part);
        draw::Knob(painter, *_worn, rect, is_down);
        const auto step = is_up ? QAbstractSpinBox::StepUpEnabled : QAbstractSpinBox::StepDownEnabled;
        const bool can_step = is_enabled && spin && spin->stepEnabled.testFlag(step);
        draw::Arrow(
            painter, rect, is_up ? draw::Direction::kUp : draw::Direction::kDown,
            _worn->On(TextPen(can_step), _worn->Ground(is_down ? KS_PEN_BG_SELECTED : KS_PEN_BG_BUTTON)));
    }
    if (Has(option, State_HasFocus))
        draw::Focus(painter, *_worn, _worn->IsNymbrel() ? option.rect : option.rect.adjusted(1, 1, -1, -1),
                    _worn->Ground(level));
}

void PenStyle::DrawComboBox(QPainter& painter, const QStyleOptionComplex& option,
                            const QWidget* widget) const {
    const draw::ButtonState state{
        .is_down = Has(option, State_Sunken),
        .is_default = false,
        .is_enabled = Has(option, State_Enabled),
        .has_room = false,
    };
    draw::Button(painter, *_worn, option.rect, state);
    const QRect arrow = subControlRect(CC_ComboBox, &option, SC_ComboBoxArrow, widget);
    const QColor ground = draw::ButtonGround(*_worn, state);
    const int line = option.direction == Qt::RightToLeft ? arrow.right() + 1 : arrow.left() - 3;
    draw::EtchedLine(painter, *_worn, QRect(line, option.rect.top() + 5, 3, option.rect.height() - 10),
                     ground);
    const QColor ink = _worn->On(TextPen(state.is_enabled), ground);
    if (_worn->IsNymbrel()) {
        const int half = arrow.height() / 2;
        draw::Arrow(painter, arrow.adjusted(0, 0, 0, 1 - half), draw::Direction::kUp, ink);
        draw::Arrow(painter, arrow.adjusted(0, half - 1, 0, 0), draw::Direction::kDown, ink);
    } else {
        draw::Arrow(painter, arrow, draw::Direction::kDown, ink);
    }
    if (Has(option, State_HasFocus))
        draw::Focus(painter, *_worn, option.rect.adjusted(4, 4, -4, -4), ground);
}

void PenStyle::DrawScrollBar(QPainter& painter, const QStyleOptionComplex& option,
                             const QWidget* widget) const {
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(&option);
    if (!slider)
        return;
    const bool is_vertical = slider->orientation == Qt::Vertical;
    const QColor trough = _worn->Ground(KS_PEN_BG_SLIDER);
    draw::Level(painter, *_worn, option.rect, KS_PEN_BG_SLIDER, option.rect.topLeft());
    draw::Edges(painter, *_worn, option.rect, draw::Edge::kSunken, draw::Weight::kThin, trough);
    const QMargins across = is_vertical ? QMargins(1, 0, 1, 0) : QMargins(0, 1, 0, 1);
    for (const SubControl part : {SC_ScrollBarAddLine, SC_ScrollBarSubLine, SC_ScrollBarSlider}) {
        const QRect rect = proxy()->subControlRect(CC_ScrollBar, &option, part, widget) - across;
        if (rect.isEmpty())
            continue;
        const bool is_down = Has(option, part);
        draw::Knob(painter, *_worn, rect, is_down);
        const QColor ground = _worn->Ground(is_down ? KS_PEN_BG_SELECTED : KS_PEN_BG_BUTTON);
        if (part == SC_ScrollBarSlider) {
            for (int i = -1; i <= 1 && std::max(rect.width(), rect.height()) > 20; ++i) {
                const QPoint middle = rect.center() + (is_vertical ? QPoint(0, 3 * i) : QPoint(3 * i, 0));
                draw::EtchedLine(painter, *_worn,
                                 is_vertical ? QRect(middle.x() - 3, middle.y(), 7, 2)
                                             : QRect(middle.x(), middle.y() - 3, 2, 7),
                                 ground);
            }
            continue;
        }
        const bool is_forward = part == SC_ScrollBarAddLine;
        const bool can_move =
            is_forward ? slider->sliderValue < slider->maximum : slider->sliderValue > slider->minimum;
        const auto direction = is_vertical ? (is_forward ? draw::Direction::kDown : draw::Direction::kUp)
                               : is_forward == (option.direction == Qt::LeftToRight) ? draw::Direction::kRight
                                                                                     : draw::Direction::kLeft;
        draw::Arrow(painter, rect, direction, _worn->On(TextPen(can_move), ground));
    }
}

void PenStyle::DrawSlider(QPainter& painter, const QStyleOptionComplex& option, const QWidget* widget) const {
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(&option);
    if (!slider)
        return;
    const bool is_vertical = slider->orientation == Qt::Vertical;
    QRect groove = proxy()->subControlRect(CC_Slider, &option, SC_SliderGroove, widget);
    const QRect knob = proxy()->subControlRect(CC_Slider, &option, SC_SliderHandle, widget);
    if (is_vertical)
        groove = QRect(groove.center().x() - 5, groove.top(), 10, groove.height());
    else
        groove = QRect(groove.left(), groove.center().y() - 5, groove.width(), 10);
    draw::Level(painter, *_worn, groove, KS_PEN_BG_SLIDER, groove.topLeft());
    draw::Edges(painter, *_worn, groove, draw::Edge::kSunken, draw::Weight::kThin,
                _worn->Ground(KS_PEN_BG_SLIDER));
    QRect filled = groove.adjusted(1, 1, -1, -1);
    if (is_vertical)
        filled.setTop(knob.center().y());
    else if (slider->upsideDown)
        filled.setLeft(knob.center().x());
    else
        filled.setRight(knob.center().x());
    draw::Paint(painter, *_worn, filled);
    draw::Level(painter, *_worn, knob, KS_PEN_BG_BUTTON, knob.topLeft());
    draw::Edges(painter, *_worn, knob, draw::Edge::kRaised, draw::Weight::kHeavy,
                _worn->Ground(KS_PEN_BG_BUTTON));
    if (Has(option, State_HasFocus))
        draw::Focus(painter, *_worn, option.rect, _worn->Ground(KS_PEN_BG_HIGH));
}

void PenStyle::DrawToolButton(QPainter& painter, const QStyleOptionComplex& option,
                              const QWidget* widget) const {
    const auto* tool = qstyleoption_cast<const QStyleOptionToolButton*>(&option);
    if (!tool)
        return;
    draw::ButtonState state = ButtonStateOf(option);
    state.is_down |= Has(option, SC_ToolButton);
    state.has_room = false;
    // A button inside a line has no frame of its own.
    if (widget && qobject_cast<const QLineEdit*>(widget->parentWidget())) {
        tool->icon.paint(&painter, option.rect);
        return;
    }
    draw::Button(painter, *_worn, option.rect, state);
    const QRect rect = option.rect.translated(state.is_down, state.is_down);
    const QColor ground = draw::ButtonGround(*_worn, state);
    painter.setPen(_worn->On(TextPen(state.is_enabled), ground));
    if (tool->icon.isNull())
        painter.drawText(rect, Qt::AlignCenter | Qt::TextShowMnemonic, tool->text);
    else
        tool->icon.paint(&painter, rect.adjusted(4, 4, -4, -4), Qt::AlignCenter,
                         state.is_enabled ? QIcon::Normal : QIcon::Disabled);
    if (Has(option, State_HasFocus))
        draw::Focus(painter, *_worn, option.rect.adjusted(2, 2, -2, -2), ground);
}

void PenStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                  QPainter* painter, const QWidget* widget) const {
    switch (control) {
    case CC_SpinBox:
        DrawSpinBox(*painter, *option, widget);
        return;
    case CC_ComboBox:
        DrawComboBox(*painter, *option, widget);
        return;
    case CC_ScrollBar:
        DrawScrollBar(*painter, *option, widget);
        return;
    case CC_Slider:
        DrawSlider(*painter, *option, widget);
        return;
    case CC_ToolButton:
        DrawToolButton(*painter, *option, widget);
        return;
    default:
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
}
