// SPDX-License-Identifier: MIT
#include "display/notice.h"

#include "display/texts.h"
#include "kits/storage.h"
#include "toolkit/settings_lines.h"

#include <QMessageBox>
#include <QPushButton>

namespace {

constexpr int kIcon = 64;

// The text may hold names of files, which are shown as they are.
QMessageBox* NewBox(QWidget* parent, QMessageBox::Icon icon, const QString& text) {
    auto* box = new QMessageBox(icon, parent->window()->windowTitle(), text, QMessageBox::NoButton, parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    return box;
}

}  // namespace

void Say(QWidget* parent, const QString& sentence) {
    QMessageBox* box = NewBox(parent, QMessageBox::Warning, sentence);
    box->addButton(QMessageBox::Ok);
    box->open();
}

void Ask(QWidget* parent, const QString& question, const QString& yes, std::function<void()> consent) {
    QMessageBox* box = NewBox(parent, QMessageBox::Question, question);
    QPushButton* const agree = box->addButton(yes, QMessageBox::AcceptRole);
    box->setDefaultButton(box->addButton(QMessageBox::Cancel));
    QObject::connect(agree, &QPushButton::clicked, parent, std::move(consent));
    box->open();
}

void TellAbout(QWidget* window) {
    const QString name = window->windowTitle();
    QMessageBox* box = NewBox(window, QMessageBox::NoIcon, name);
    box->setWindowTitle(texts::Text(texts::kAbout).arg(name));
    box->setIconPixmap(window->windowIcon().pixmap(kIcon));
    box->setInformativeText(
        texts::Text(texts::kVersion).arg(QStringLiteral(NYMBREL_VERSION)) + u'\n' +
        texts::Text(texts::kLicence) + u'\n' +
        texts::Text(texts::kSettingsLie).arg(QString::fromStdString(ks_resolve_path(kSettingsPath))));
    box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box->addButton(QMessageBox::Ok);
    box->open();
}
