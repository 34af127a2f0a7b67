// SPDX-License-Identifier: MIT
// A group: a box, a grid or a stack as its layout numbers say; a group box where it has a frame or a title.
#include "display/control_mirror.h"
#include "display/draw.h"
#include "display/look.h"
#include "display/marks.h"
#include "display/page_area.h"
#include "display/pen_style.h"
#include "display/window_mirror.h"
#include "toolkit/KSListView.h"
#include "toolkit/KSTitleGroup.h"

#include <QBoxLayout>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QPainter>
#include <QStackedLayout>

#include <algorithm>

namespace {

// The weight of a spacer, and of a child that has no weight of its own and can use spare room.
constexpr int kDefaultWeight = 100;
// The weight of a list that has none of its own: it takes the spare height, since it has more to show.
constexpr KSPoint<long> kListWeight{0, 10000};

bool IsSpacer(const KSControl& control) {
    return typeid(control) == typeid(KSControl) && control.Children().empty();
}

// A group without a weight has its heaviest child's.
KSPoint<long> WeightOf(const KSControl& control) {
    KSPoint<long> weight = control.Weight();
    if (weight == KSPoint<long>() && dynamic_cast<const KSListView*>(&control))
        return kListWeight;
    if (weight == KSPoint<long>())
        for (const auto& child : control.Children()) {
            const KSPoint<long> below = WeightOf(*child);
            weight = {std::max(weight.x, below.x), std::max(weight.y, below.y)};
        }
    return weight;
}

class Frame : public QGroupBox {
public:
    Frame(ks_pen level, QWidget* parent) : QGroupBox(parent), _level(level) {
        setProperty(PenStyle::kLevel, level);
        marks::MakeGround(*this);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        const Worn& worn = PenStyle::Instance().Wearing();
        const int title_height = title().isEmpty() ? 0 : PenStyle::Instance().TitleHeight();
        QPainter painter(this);
        painter.setFont(worn.Font(KS_FONT_TITLE));
        draw::Group(painter, worn, rect(), _level, title(), title_height);
        marks::Paint(painter, worn, *this, _level);
    }

    // What is drawn beside the editors follows them.
    bool event(QEvent* event) override {
        if (event->type() == QEvent::LayoutRequest)
            update();
        return QGroupBox::event(event);
    }

private:
    ks_pen _level;
};

class GroupMirror : public ControlMirror {
public:
    GroupMirror(KSControl& control, WindowMirror& window, QWidget* parent) : ControlMirror(control, window) {
        if (IsSpacer(control))
            return;
        if (dynamic_cast<KSTitleGroup*>(&control))
            SetWidget(_box = new Frame(KS_PEN_BG_HIGH, parent));
        else if (control.FrameType() == KS_FRAME_GROUP)
            SetWidget(_box = new Frame(KS_PEN_BG_MED, parent));
        else
            SetWidget(new QWidget(parent));

        if (control.ForceMode() == KS_FORCE_STACKED)
            Stack();
        else if (control.Columns() > 0)
            Grid(static_cast<int>(control.Columns()));
        else
            Box();
        const KSRect<long> border = control.Border();
        QMargins margins(static_cast<int>(border.left), static_cast<int>(border.top),
                         static_cast<int>(border.right), static_cast<int>(border.bottom));
        Widget()->layout()->setContentsMargins(_box ? margins + look::FrameMargins() : margins);
    }

    void Fetch() override {
        ControlMirror::Fetch();
        _name = QString::fromUtf8(Control().Name());
    }

    void Apply() override {
        if (_stack)
            ShowPage();
        ControlMirror::Apply();
    }

    void ShowLabel(int, QWidget*) override {}

    // A group without a title is known by its own name. Without that, a nested one would tell assistive tools
    // the outer one's title.
    void SetName(const QString&) override {
        if (!_box)
            return;
        _box->setTitle(ShownLabel());
        _box->setAccessibleName(Label().isEmpty() ? _name : Label());
    }

private:
    void Stack() {
        _stack = new QStackedLayout(Widget());
        for (const auto& child : Control().Children()) {
            auto* area = new PageArea(Widget());
            area->SetPage(Window().Make(*child, area).Widget());
            _stack->addWidget(area);
        }
    }

    // Shows the first page that is not hidden; where all are hidden, the present one stays.
    void ShowPage() {
        const auto& pages = Control().Children();
        const auto shown = std::ranges::find_if(
            pages, [&](const auto& page) { return !Window().Find(page.get())->IsHidden(); });
        if (shown != pages.end())
            _stack->setCurrentIndex(static_cast<int>(shown - pages.begin()));
    }

    // Fills the cells row by row. A row with nothing but spacers takes spare room.
    void Grid(int columns) {
        auto* grid = new QGridLayout(Widget());
        grid->setHorizontalSpacing(look::kGap);
        grid->setVerticalSpacing(look::kRowGap);
        int cell = 0;
        bool only_spacers = true;
        for (const auto& child : Control().Children()) {
            const int row = cell / columns, column = cell % columns;
            ControlMirror& mirror = Window().Make(*child, Widget());
            if (mirror.Widget()) {
                grid->addWidget(mirror.Widget(), row, column);
                only_spacers = false;
            }
            if (++cell % columns == 0 || cell == static_cast<int>(Control().Children().size())) {
                if (only_spacers)
                    grid->setRowStretch(row, 1);
                only_spacers = true;
            }
        }
    }

    void Box() {
        const Qt::Orientation along =
            Control().Orientation() == KS_ORIENTATION_VERTICAL ? Qt::Vertical : Qt::Horizontal;
        auto* box = new QBoxLayout(along == Qt::Vertical ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight,
                                   Widget());
        box->setSpacing(look::kGap);
        const auto weight = [along](const auto& child) {
            const KSPoint<long> both = WeightOf(*child);
            return static_cast<int>(along == Qt::Vertical ? both.y : both.x);
        };
        const auto& children = Control().Children();
        const bool weighted =
            std::ranges::any_of(children, [&](const auto& child) { return weight(child) > 0; });
        for (const auto& child : children) {
            ControlMirror& mirror = Window().Make(*child, Widget());
            if (!mirror.Widget()) {
                box->addStretch(kDefaultWeight);
                continue;
            }
            box->addWidget(mirror.Widget());
            const int last = box->count() - 1;
            if (weight(child) > 0)
                box->setStretch(last, weight(child));
            else if (weighted && box->itemAt(last)->expandingDirections().testFlag(along))
                box->setStretch(last, kDefaultWeight);
        }
    }

    QString _name;
    Frame* _box = nullptr;
    QStackedLayout* _stack = nullptr;
};

}  // namespace

std::unique_ptr<ControlMirror> MirrorGroup(KSControl& control, WindowMirror& window, QWidget* parent) {
    return std::make_unique<GroupMirror>(control, window, parent);
}
