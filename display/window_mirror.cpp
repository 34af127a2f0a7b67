// SPDX-License-Identifier: MIT
// Builds a window's widgets, keeps them in step with the controls, and does what concerns the window as a
// whole: its close box, its default button and the names of its editors.
#include "display/window_mirror.h"

#include "display/dragged_file.h"
#include "display/draw.h"
#include "display/editor_watch.h"
#include "display/marks.h"
#include "display/mnemonics.h"
#include "display/pen_style.h"
#include "display/post_queue.h"
#include "display/screen_fit.h"
#include "display/texts.h"
#include "display/wardrobe.h"
#include "display/window_menu.h"
#include "kits/BWindow.h"
#include "toolkit/KSContainer.h"
#include "toolkit/KSHistory.h"
#include "toolkit/KSLabel.h"
#include "toolkit/KSListView.h"
#include "toolkit/KSLook.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QDialog>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

namespace {

// How long a window waits for the layout that its application asks for after Show, in milliseconds. By then
// the values are there: painted before it, the window would be painted twice.
constexpr int kLongestWait = 20;

constexpr QKeyCombination kUndoKey = Qt::CTRL | Qt::Key_Z;
constexpr QKeyCombination kRedoKeys[] = {Qt::CTRL | Qt::SHIFT | Qt::Key_Z, Qt::CTRL | Qt::Key_Y};

// Qt opens it at the menu key only.
void OpenMenuOfFocus() {
    QWidget* focus = QApplication::focusWidget();
    if (!focus)
        return;
    const QPoint where = focus->rect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, where, focus->mapToGlobal(where));
    QApplication::sendEvent(focus, &event);
}

}  // namespace

class WindowMirror::Top : public QWidget {
public:
    Top(WindowMirror& mirror, Wardrobe& wardrobe) : _window(mirror.Window()), _wardrobe(wardrobe) {
        setAttribute(Qt::WA_OpaquePaintEvent);
        setAcceptDrops(true);
        QAccessible::installFactory(MakeAccessible);  // a second time changes nothing
        marks::MakeGround(*this);
    }

    // Makes the menu and its keys, once all that the window has is there.
    void SetMenu(std::unique_ptr<WindowMenu> menu) { _menu = std::move(menu); }

    void SetDefaultButton(QPushButton* button) {
        if (_default_button)
            _default_button->setDefault(false);
        _default_button = button;
        if (button)
            button->setDefault(true);
    }

    // Comes on screen, the first time only.
    void Appear(const KSRect<long>& frame) {
        if (std::exchange(_has_appeared, true))
            return;
        Fit(QPoint(static_cast<int>(frame.left), static_cast<int>(frame.top)),
            QSize(static_cast<int>(frame.PixelWidth()), static_cast<int>(frame.PixelHeight())));
        show();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const auto& worn = PenStyle::Instance().Wearing();
        draw::Level(painter, worn, rect(), KS_PEN_BG_LOW, QPoint());
        marks::Paint(painter, worn, *this, KS_PEN_BG_LOW);
        if (!std::exchange(_is_painted, true))
            QMetaObject::invokeMethod(
                &_wardrobe, [this] { _wardrobe.ReadBitmaps(); }, Qt::QueuedConnection);
    }

    // Fits the window to its contents whenever they change, until the user chooses another size.
    bool event(QEvent* event) override {
        const bool handled = QWidget::event(event);
        if (event->type() == QEvent::LayoutRequest) {
            if (size() == _fitted)
                Fit(frameGeometry() == geometry() ? _start : pos(), _least);
            else
                BoundLeastSize(*this);
        }
        return handled;
    }

    void contextMenuEvent(QContextMenuEvent* event) override { _menu->Open(event->globalPos()); }

    // A file that no editor takes is opened as a scheme.
    void dragEnterEvent(QDragEnterEvent* event) override {
        if (_menu->OfSchemes().CanOpen() && !DraggedFile(*event->mimeData()).isEmpty())
            event->acceptProposedAction();
    }

    void dropEvent(QDropEvent* event) override {
        event->acceptProposedAction();
        _menu->OfSchemes().Open(DraggedFile(*event->mimeData()), *this);
    }

    void closeEvent(QCloseEvent* event) override {
        BAutolock lock(&_window);
        event->setAccepted(!lock || _window.QuitRequested());
    }

    void keyPressEvent(QKeyEvent* event) override {
        const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (enter && !(event->modifiers() & ~Qt::KeypadModifier) && !event->isAutoRepeat() && _default_button)
            _default_button->click();
        else
            QWidget::keyPressEvent(event);
    }

private:
    static QAccessibleInterface* MakeAccessible(const QString& key, QObject* object);

    void Fit(QPoint start, QSize least) {
        _start = start;
        _least = least;
        FitToScreen(*this, start, least);
        _fitted = size();
    }

    BWindow& _window;
    Wardrobe& _wardrobe;
    std::unique_ptr<WindowMenu> _menu;
    bool _has_appeared = false, _is_painted = false;
    QPointer<QPushButton> _default_button;
    QPoint _start;  // of the frame
    QSize _least, _fitted;
};

// Qt tells assistive tools that a plain widget is no window, even at the top.
QAccessibleInterface* WindowMirror::Top::MakeAccessible(const QString&, QObject* object) {
    auto* top = dynamic_cast<Top*>(object);
    return top ? new QAccessibleWidget(top, QAccessible::Window) : nullptr;
}

WindowMirror::WindowMirror(BWindow& window, PostQueue& queue, Wardrobe& wardrobe)
    : _window(window), _queue(queue), _wardrobe(wardrobe) {
    ks_look look;
    {
        BAutolock lock(&window);
        if (!lock)
            return;
        look = ks_current_look->Copy();
    }
    // First of all: a widget begins with the fonts that are worn when it is made.
    wardrobe.Wear(look);
    _top = std::make_unique<Top>(*this, wardrobe);
    auto* layout = new QHBoxLayout(_top.get());
    layout->setContentsMargins({});
    layout->setSizeConstraint(QLayout::SetNoConstraint);
    layout->setSpacing(0);
    new QShortcut(kUndoKey, _top.get(), [this] { Undo(); });
    for (const QKeyCombination key : kRedoKeys)
        new QShortcut(key, _top.get(), [this] { Redo(); });
    new QShortcut(Qt::SHIFT | Qt::Key_F10, _top.get(), OpenMenuOfFocus);
    {
        BAutolock lock(&window);
        if (!lock)
            return;
        for (const auto& view : window.Children())
            if (auto* container = dynamic_cast<KSContainer*>(view.get()); container && container->Content()) {
                layout->addWidget(Make(*container->Content(), _top.get()).Widget());
                _containers.push_back(container);
                container->TakeChanges();
            }
        for (const auto& mirror : _mirrors)
            mirror->Fetch();
        Listen(true);
    }
    for (const auto& mirror : _mirrors) {
        const QSignalBlocker blocker(mirror->Widget());
        mirror->Apply();
    }
    for (const auto& mirror : _mirrors)
        if (mirror->Editor() && mirror->Control().IsEditor())
            new EditorWatch(*mirror);
    _top->setWindowTitle(QString::fromUtf8(window.Title()));
    _top->SetMenu(std::make_unique<WindowMenu>(*this, *_top));
    ShowLabels();
    // What was measured before the texts were there is measured again, children before their parents.
    const QList<QWidget*> widgets = _top->findChildren<QWidget*>();
    for (auto widget = widgets.rbegin(); widget != widgets.rend(); ++widget)
        (*widget)->updateGeometry();

    QTimer::singleShot(kLongestWait, _top.get(), [this] { _top->Appear(_window.Frame()); });
}

WindowMirror::~WindowMirror() = default;

void WindowMirror::Listen(bool on) {
    BAutolock lock(&_window);
    for (KSContainer* container : _containers)
        container->SetChangeListener(on ? std::function<void()>([this] { _queue.Post([this] { Sync(); }); })
                                        : nullptr);
}

ControlMirror& WindowMirror::Make(KSControl& control, QWidget* parent) {
    _mirrors.push_back(MakeMirror(control, *this, parent));
    _by_control[&control] = _mirrors.back().get();
    return *_mirrors.back();
}

ControlMirror* WindowMirror::Find(const KSControl* control) const {
    const auto found = _by_control.find(control);
    return found == _by_control.end() ? nullptr : found->second;
}

void WindowMirror::Commit() {
    for (const auto& mirror : _mirrors)
        mirror->Commit();
}

std::vector<menu_entry> WindowMirror::Commands() const {
    std::vector<menu_entry> commands;
    for (const auto& mirror : _mirrors)
        std::ranges::move(mirror->WindowCommands(), std::back_inserter(commands));
    return commands;
}

// Once what the dialog's closing does to the controls is done.
void WindowMirror::TakeOffAfter(const QDialog& dialog) {
    const auto take_off = [this] {
        ks_look look;
        {
            const BAutolock lock(&_window);
            if (!lock)
                return;
            look = ks_current_look->Copy();
        }
        _wardrobe.TakeOffFor(look);
    };
    QObject::connect(&dialog, &QDialog::finished, _top.get(), take_off, Qt::QueuedConnection);
}

void WindowMirror::SetDefaultButton(QPushButton* button) {
    _top->SetDefaultButton(button);
}

void WindowMirror::Sync() {
    std::vector<ControlMirror*> changed;
    bool layout = false, redraw = false, labels = false;
    ks_look look;
    {
        BAutolock lock(&_window);
        if (!lock)
            return;
        for (KSContainer* container : _containers) {
            const KSContainer::Changes changes = container->TakeChanges();
            for (const KSControl* control : changes.controls)
                if (ControlMirror* mirror = Find(control))
                    changed.push_back(mirror);
            layout |= changes.layout;
            redraw |= changes.redraw;
        }
        // A new layout needs every size again.
        if (layout) {
            changed.clear();
            for (const auto& mirror : _mirrors)
                changed.push_back(mirror.get());
        }
        Fetch(changed, labels);
        look = ks_current_look->Copy();
    }
    for (ControlMirror* mirror : changed) {
        const QSignalBlocker blocker(mirror->Widget());
        mirror->Apply();
    }
    if (labels)
        ShowLabels();
    if (layout) {
        // Those of hidden pages, too, which would keep their sizes until they are shown.
        for (QLayout* below : _top->findChildren<QLayout*>())
            below->invalidate();
        _top->layout()->activate();
    }
    _wardrobe.Wear(look);
    if (layout)
        _top->Appear(_window.Frame());
    else if (redraw)  // a new layout draws everything
        _top->update();
}

void WindowMirror::Fetch(std::vector<ControlMirror*>& changed, bool& labels) {
    bool marks = false;
    for (ControlMirror* mirror : changed) {
        const QString label = mirror->Label();
        const bool was_edited = mirror->IsEdited();
        mirror->Fetch();
        labels |= label != mirror->Label();
        marks |= was_edited != mirror->IsEdited();
    }
    if (!marks)
        return;
    for (const auto& mirror : _mirrors)
        if (dynamic_cast<KSListView*>(&mirror->Control()) && !mirror->Control().IsEditor()) {
            mirror->Fetch();
            if (std::ranges::find(changed, mirror.get()) == changed.end())
                changed.push_back(mirror.get());
        }
}

// What is typed and has become a step is undone by the history; what has not is the line's own.
void WindowMirror::Undo() {
    bool is_step = false;
    if (_typing) {
        const BAutolock lock(&_window);
        const KSHistory* history = lock ? KSHistory::Of(&_window) : nullptr;
        is_step = history && history->IsRunOf(_typing->Control());
    }
    if (_typing && !is_step && _typing->Line()->isUndoAvailable())
        _typing->Line()->undo();
    else
        Exchange(false);
}

void WindowMirror::Redo() {
    if (_typing && _typing->Line()->isRedoAvailable())
        _typing->Line()->redo();
    else
        Exchange(true);
}

void WindowMirror::Exchange(bool redo) {
    const BAutolock lock(&_window);
    KSHistory* history = lock ? KSHistory::Of(&_window) : nullptr;
    if (!history || !(redo ? history->CanRedo() : history->CanUndo()))
        return;
    SetTyping(nullptr);
    redo ? history->Redo() : history->Undo();
}

std::vector<menu_entry> WindowMirror::HistoryEntries() {
    const BAutolock lock(&_window);
    const KSHistory* history = lock ? KSHistory::Of(&_window) : nullptr;
    return {{texts::Text(texts::kUndo), kUndoKey, [this] { Undo(); }, history && history->CanUndo()},
            {texts::Text(texts::kRedo), kRedoKeys[0], [this] { Redo(); }, history && history->CanRedo()}};
}

bool WindowMirror::IsHistoryKey(const QKeyEvent& event) {
    const QKeySequence key(event.keyCombination());
    return key == kUndoKey || key == kRedoKeys[0] || key == kRedoKeys[1];
}

void WindowMirror::SetTyping(const ControlMirror* mirror) {
    if (std::exchange(_typing, mirror) == mirror)
        return;
    const BAutolock lock(&_window);
    if (KSHistory* history = lock ? KSHistory::Of(&_window) : nullptr)
        history->SetTyping(mirror ? &mirror->Control() : nullptr);
}

void WindowMirror::ShowLabels() {
    // A page's mnemonics differ from those that are always visible, and may be those of another page.
    Pages pages(1);
    std::unordered_map<ControlMirror*, QWidget*> editors;
    for (KSContainer* container : _containers)
        NameEditors(*container->Content(), _top->windowTitle(), pages, 0, editors);

    std::set<char> common;
    for (const auto& page : pages) {
        std::vector<QString> texts;
        for (const ControlMirror* mirror : page)
            texts.push_back(mirror->ShownLabel());
        std::set<char> used = common;
        const std::vector<int> mnemonics = ChooseMnemonics(texts, used);
        for (std::size_t i = 0; i < page.size(); ++i)
            page[i]->ShowLabel(mnemonics[i], editors[page[i]]);
        if (&page == &pages.front())
            common = used;
    }
}

void WindowMirror::NameEditors(const KSControl& control, const QString& title, Pages& pages, std::size_t page,
                               std::unordered_map<ControlMirror*, QWidget*>& editors) {
    ControlMirror* mirror = Find(&control);
    const QString& label = mirror->Label();
    const QString& name = label.isEmpty() ? title : label;
    if (mirror->NamesItself())
        pages[page].push_back(mirror);
    mirror->SetName(name);

    // A label names the editors of the next control that has one.
    ControlMirror* naming = nullptr;
    for (const auto& child : control.Children()) {
        if (control.ForceMode() == KS_FORCE_STACKED) {
            pages.emplace_back();
            page = pages.size() - 1;
        }
        if (dynamic_cast<const KSLabel*>(child.get())) {
            naming = Find(child.get());
            naming->ShowLabel(-1, nullptr);
            continue;
        }
        QWidget* editor = FirstEditor(*child);
        if (naming && editor) {
            pages[page].push_back(naming);
            editors[naming] = editor;
            NameEditors(*child, naming->Label(), pages, page, editors);
            naming = nullptr;
        } else {
            NameEditors(*child, name, pages, page, editors);
        }
    }
}

QWidget* WindowMirror::FirstEditor(const KSControl& control) const {
    if (QWidget* editor = Find(&control)->Editor())
        return editor;
    for (const auto& child : control.Children())
        if (QWidget* editor = FirstEditor(*child))
            return editor;
    return nullptr;
}
