// SPDX-License-Identifier: MIT
#include "display/schemes.h"

#include "display/notice.h"
#include "display/texts.h"
#include "display/window_mirror.h"
#include "kits/BWindow.h"
#include "toolkit/KSHistory.h"
#include "toolkit/KSLook.h"
#include "toolkit/installed_data.h"
#include "toolkit/scheme.h"
#include "toolkit/settings_lines.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>

#include <utility>

namespace {

struct installed_scheme {
    texts::text name;
    const char* file;
};

constexpr installed_scheme kInstalled[] = {{texts::kNight, "schemes/night.scheme"},
                                           {texts::kHighContrast, "schemes/high_contrast.scheme"},
                                           {texts::kPaper, "schemes/paper.scheme"},
                                           {texts::kOcean, "schemes/ocean.scheme"}};
constexpr QSize kDialogSize(640, 440);

QString NameOf(const QString& path) {
    return QFileInfo(path).fileName();
}

}  // namespace

// A file dialog that asks and complains by itself: Qt's own questions would be waited for.
class Schemes::Dialog : public QFileDialog {
public:
    // `take` gets the chosen file and returns whether the dialog is done.
    Dialog(const texts::text& title, AcceptMode mode, QWidget* parent,
           std::function<bool(const QString&, QWidget&)> take)
        : QFileDialog(parent, texts::Text(title)), _take(std::move(take)) {
        resize(kDialogSize);
        setAttribute(Qt::WA_DeleteOnClose);
        setOptions(DontUseNativeDialog | DontConfirmOverwrite);
        setAcceptMode(mode);
        setFileMode(AnyFile);
        setDefaultSuffix(mode == AcceptSave ? QStringLiteral("scheme") : QString());
        setNameFilters({texts::Text(texts::kSchemes) + QStringLiteral(" (*.scheme)"),
                        texts::Text(texts::kAllFiles) + QStringLiteral(" (*)")});
    }

    void accept() override {
        const QString path = selectedFiles().value(0);
        const QFileInfo file(path);
        if (path.isEmpty())
            return;
        if (file.isDir())
            setDirectory(path);
        else if (acceptMode() == AcceptSave && file.exists())
            Ask(this, texts::Text(texts::kReplaceQuestion).arg(NameOf(path)), texts::Text(texts::kReplace),
                [this, path] { Take(path); });
        else
            Take(path);
    }

private:
    void Take(const QString& path) {
        if (_take(path, *this))
            done(Accepted);
    }

    std::function<bool(const QString&, QWidget&)> _take;
};

std::vector<menu_entry> Schemes::Commands() {
    if (!ks_current_look->HasEditors())
        return {};
    std::vector<menu_entry> offers;
    for (const auto& [name, palette] : {std::pair(texts::kDefaultScheme, kDefaultPalette),
                                        std::pair(texts::kBeOSScheme, kBeOSConformPalette)})
        offers.push_back({texts::Text(name), {}, [=, this] { Wear(ks_palette_scheme(palette)); }});
    for (const installed_scheme& scheme : kInstalled)
        offers.push_back({texts::Text(scheme.name), {}, [=, this] {
                              Open(QString::fromStdString(ks_installed_data(scheme.file)), _top);
                          }});
    return {{.text = texts::Text(texts::kSchemes), .entries = std::move(offers)},
            {texts::Text(texts::kOpenScheme) + u'…', Qt::CTRL | Qt::Key_O, [this] { AskForOne(); }},
            {texts::Text(texts::kSaveScheme) + u'…', Qt::CTRL | Qt::SHIFT | Qt::Key_S,
             [this] { AskWhereToSave(); }},
            {}};
}

bool Schemes::CanOpen() const {
    return ks_current_look->HasEditors() && !QApplication::activeModalWidget();
}

bool Schemes::Open(const QString& path, QWidget& parent) {
    const std::optional<ks_scheme_file> file = ks_read_scheme(path.toStdString());
    if (!file || file->values == 0) {
        Say(&parent, texts::Text(file ? texts::kNoScheme : texts::kNotRead).arg(NameOf(path)));
        return false;
    }
    Wear(file->scheme);
    if (file->faults > 0)
        Say(&_top, texts::Text(texts::kDamagedScheme).arg(NameOf(path)));
    return true;
}

void Schemes::Wear(const ks_scheme& scheme) {
    _window.Commit();
    if (const KSHistory::Step step(&_window.Window()); step)
        ks_current_look->Edit(scheme);
}

bool Schemes::Save(const QString& path, QWidget& parent) {
    _window.Commit();
    ks_look look;
    {
        const BAutolock lock(&_window.Window());
        if (!lock)
            return false;
        look = ks_current_look->Copy();
    }
    const bool is_written = ks_write_settings_file(path.toStdString(), ks_format_scheme(look));
    if (!is_written)
        Say(&parent, texts::Text(texts::kNotWritten).arg(NameOf(path)));
    return is_written;
}

void Schemes::AskForOne() {
    (new Dialog(texts::kOpenScheme, QFileDialog::AcceptOpen, &_top,
                [this](const QString& path, QWidget& dialog) { return Open(path, dialog); }))
        ->open();
}

void Schemes::AskWhereToSave() {
    (new Dialog(texts::kSaveScheme, QFileDialog::AcceptSave, &_top,
                [this](const QString& path, QWidget& dialog) { return Save(path, dialog); }))
        ->open();
}
