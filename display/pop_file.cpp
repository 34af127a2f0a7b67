// SPDX-License-Identifier: MIT
// A file pop-up: a path to type in, clear or drop a file on, and a dialog that previews pictures.
#include "display/control_mirror.h"
#include "display/look.h"
#include "display/marks.h"
#include "display/path_text.h"
#include "display/picture_dialog.h"
#include "display/picture_file.h"
#include "display/texts.h"
#include "display/typed_text.h"
#include "display/wardrobe.h"
#include "display/window_mirror.h"
#include "toolkit/KSLook.h"
#include "toolkit/KSPopFile.h"

#include <QAction>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPointer>
#include <QStyle>
#include <QTimer>
#include <QToolButton>
#include <QToolTip>
#include <QUrl>

#include <functional>
#include <optional>
#include <utility>

namespace {

constexpr int kCheckDelay = 150;  // milliseconds after the last key, before the file is looked at

// Returns the path of the one local file that is dropped, or the path that is dropped as text. Returns an
// empty one for everything else.
QString FileIn(const QMimeData& data) {
    if (const QList<QUrl> urls = data.urls(); !urls.isEmpty())
        return urls.size() == 1 && urls.front().isLocalFile() ? urls.front().toLocalFile() : QString();
    const QString path = PathFrom(data.text());
    return path.startsWith(u'/') ? path : QString();
}

// The line in which the path is typed. An icon, a tip and a description tell when the path cannot be kept or
// is no readable picture.
class PathEdit : public QLineEdit {
public:
    // `chosen` is called with the path of a file that is dropped on the line, and with the empty path when
    // the clear button is pressed.
    PathEdit(std::function<void(const QString&)> chosen, QWidget* parent)
        : QLineEdit(parent), _chosen(std::move(chosen)) {
        connect(this, &QLineEdit::textChanged, this, [this] {
            if (_clear)
                _clear->setVisible(!text().isEmpty());
            CheckSoon();
        });
        LetEnterTakeTypedText(this, this);
    }

    void ShowPath(const QString& path) {
        if (text() != path)
            setText(path);
        SetRefused(false);
    }

    // Tells whether the text in the line cannot be kept.
    void SetRefused(bool refused) {
        if (_is_refused == refused)
            return;
        _is_refused = refused;
        CheckSoon();
    }
    bool IsRefused() const { return _is_refused; }

    QSize sizeHint() const override {
        return {fontMetrics().averageCharWidth() * 24, QLineEdit::sizeHint().height()};
    }
    QSize minimumSizeHint() const override {
        return {fontMetrics().averageCharWidth() * 16, QLineEdit::minimumSizeHint().height()};
    }

protected:
    void dragEnterEvent(QDragEnterEvent* event) override {
        if (event->mimeData()->hasUrls())
            event->setAccepted(!FileIn(*event->mimeData()).isEmpty());
        else
            QLineEdit::dragEnterEvent(event);
    }

    void dragMoveEvent(QDragMoveEvent* event) override {
        if (event->mimeData()->hasUrls())
            event->acceptProposedAction();
        else
            QLineEdit::dragMoveEvent(event);
    }

    void dropEvent(QDropEvent* event) override {
        const QString path = event->source() == this ? QString() : FileIn(*event->mimeData());
        if (path.isEmpty()) {
            QLineEdit::dropEvent(event);
            return;
        }
        event->acceptProposedAction();
        _chosen(path);
    }

    void showEvent(QShowEvent* event) override {
        QLineEdit::showEvent(event);
        if (!_clear)
            AddClearButton();
        CheckSoon();
    }

private:
    // Made when the line is first seen, since it loads a picture. Qt's own clear button leaves animations
    // over when the program ends.
    void AddClearButton() {
        _clear = addAction(style()->standardIcon(QStyle::SP_LineEditClearButton), TrailingPosition);
        _clear->setText(texts::Text(texts::kClear));
        _clear->setVisible(!text().isEmpty());
        connect(_clear, &QAction::triggered, this, [this] { _chosen(QString()); });
    }

    // Checks the file a moment later, if somebody can see the answer.
    void CheckSoon() {
        if (!isVisible())
            return;
        if (!_timer) {
            _timer = new QTimer(this);
            _timer->setSingleShot(true);
            _timer->setInterval(kCheckDelay);
            connect(_timer, &QTimer::timeout, this, [this] { Check(); });
        }
        _timer->start();
    }

    void Check() {
        const QString path = PathFrom(text());
        if (_is_refused)
            Warn(texts::Text(texts::kNoPath));
        else if (!path.isEmpty() && !IsPicture(path))
            Warn(texts::Text(texts::kNoPicture));
        else
            Warn(QString());
    }

    // Shows the warning, or none where it is empty.
    void Warn(const QString& warning) {
        if (warning == toolTip())
            return;
        if (warning.isEmpty())
            delete std::exchange(_warning, nullptr);
        else if (!_warning)
            _warning =
                addAction(style()->standardIcon(QStyle::SP_MessageBoxWarning), QLineEdit::LeadingPosition);
        if (_warning)
            _warning->setText(warning);
        setToolTip(warning);
        marks::Describe(*this, warning);
        update();  // the text moves aside
    }

    std::function<void(const QString&)> _chosen;
    QTimer* _timer = nullptr;
    QAction* _warning = nullptr;
    QAction* _clear = nullptr;
    bool _is_refused = false;
};

// Enter presses this button too, since it opens something.
class BrowseButton : public QToolButton {
public:
    explicit BrowseButton(QWidget* parent) : QToolButton(parent) {
        setText(QStringLiteral("…"));
        setFocusPolicy(Qt::StrongFocus);
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && !event->isAutoRepeat())
            click();
        else
            QToolButton::keyPressEvent(event);
    }
};

class PopFileMirror : public ControlMirror {
public:
    PopFileMirror(KSPopFile& control, WindowMirror& window, QWidget* parent)
        : ControlMirror(control, window), _control(control) {
        auto* row = new QWidget(parent);
        row->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        _edit = new PathEdit([this](const QString& path) { Choose(path); }, row);
        QObject::connect(_edit, &QLineEdit::textEdited, _edit,
                         [this](const QString& text) { Edit(PathFrom(text)); });
        QObject::connect(_edit, &QLineEdit::editingFinished, _edit, [this] { Commit(); });
        _browse = new BrowseButton(row);
        auto* layout = new QHBoxLayout(row);
        layout->setContentsMargins({});
        layout->setSpacing(look::kGap / 2);
        layout->addWidget(_edit);
        layout->addWidget(_browse);
        SetWidget(row);
        QObject::connect(_browse, &QToolButton::clicked, _browse, [this] { Browse(); });
    }

    void Fetch() override {
        ControlMirror::Fetch();
        _path = QString::fromStdString(_control.Path());
    }

    void Apply() override {
        ControlMirror::Apply();
        // The text that is being typed may be ahead of the control's.
        if (_path != _last_synced)
            _edit->ShowPath(_path);
        _last_synced = _path;
    }

    // Shows the control's path in place of what was typed for it. Says so where that was refused.
    void Commit() override {
        if (_edit->IsRefused())
            QToolTip::showText(_edit->mapToGlobal(_edit->rect().bottomLeft()), texts::Text(texts::kNoPath),
                               _edit);
        _edit->ShowPath(QString::fromStdString(_control.Path()));
    }

    QWidget* Editor() const override { return _edit; }

    void SetName(const QString& name) override {
        _edit->setAccessibleName(name + QStringLiteral(": ") + texts::Text(texts::kBitmap));
        _browse->setAccessibleName(name + QStringLiteral(": ") + texts::Text(texts::kBrowse));
    }

private:
    // A path that the control refuses stays in the line until Commit: it may be the first half of one.
    void Edit(const QString& path) {
        const bool is_kept = _control.EditText(path.toStdString());
        if (is_kept)
            _last_synced = path;
        _edit->SetRefused(!is_kept);
    }

    // Takes a path that was chosen as a whole.
    void Choose(const QString& path) {
        Edit(path);
        Commit();
    }

    void Browse() {
        if (_dialog) {
            _dialog->activateWindow();
            return;
        }
        _dialog = new PictureDialog(_path, Widget()->window());
        _dialog->setWindowTitle(_browse->accessibleName());
        QObject::connect(_dialog, &QFileDialog::fileSelected, _edit,
                         [this](const QString& path) { Choose(path); });
        WearWhatItShows();
        _dialog->open();
    }

    void WearWhatItShows() {
        const std::optional<ks_pen> level = ks_current_look->LevelOf(&_control);
        if (!level)
            return;
        _dialog->SetListener([level = static_cast<std::size_t>(*level), this](const QString& path) {
            if (path.isEmpty())
                Window().Worn().TakeOff();
            else
                Window().Worn().TryOn(
                    [=, bitmap = path.toStdString()](ks_look& look) { look.bitmaps[level] = bitmap; });
        });
        Window().TakeOffAfter(*_dialog);
    }

    KSPopFile& _control;
    PathEdit* _edit;
    BrowseButton* _browse;
    QPointer<PictureDialog> _dialog;
    QString _path;         // as last fetched
    QString _last_synced;  // the last path that line and control both had
};

}  // namespace

std::unique_ptr<ControlMirror> MirrorPopFile(KSPopFile& control, WindowMirror& window, QWidget* parent) {
    return std::make_unique<PopFileMirror>(control, window, parent);
}
