// SPDX-License-Identifier: MIT
// Holds a page of a stack and scrolls it where the window has too little room for it.
#pragma once

#include <QScrollArea>

class PageArea : public QScrollArea {
public:
    explicit PageArea(QWidget* parent);

    // Takes `page`, a child, before it is shown.
    void SetPage(QWidget* page) { _page = page; }

    // The page's own, as if it were not scrolled.
    QSize sizeHint() const override;
    // The page's own up to a bound, so that a window can be made smaller than its pages.
    QSize minimumSizeHint() const override;

protected:
    void showEvent(QShowEvent* event) override;
    // Tells the layout around it when the page asks for another size.
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void FollowFocus(QWidget* focused);

    QWidget* _page = nullptr;
};
