// SPDX-License-Identifier: MIT
// The file dialog for pictures, with a preview at its right of what is chosen or typed.
#pragma once

#include <QFileDialog>
#include <QString>

#include <functional>

class QLabel;
class QLineEdit;

class PictureDialog : public QFileDialog {
public:
    // Starts with the file at `start`, if there is one.
    PictureDialog(const QString& start, QWidget* parent);

    // Calls `shown` with the path of each picture that the preview shows, and with an empty one when it shows
    // none.
    void SetListener(std::function<void(const QString&)> shown) { _shown = std::move(shown); }

protected:
    // What is typed for a name may be any text that means a path.
    void accept() override;
    void showEvent(QShowEvent* event) override;

private:
    void Preview(const QString& path);
    void ArrangeColumns();

    QLabel* _preview;
    QLineEdit* _name;
    QString _previewed;
    std::function<void(const QString&)> _shown;
};
