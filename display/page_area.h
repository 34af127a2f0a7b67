// SPDX-License-Identifier: MIT
// Holds a page of a stack and scrolls it where the window has too little room for it.
#pragma once

#include <QScrollArea>

class PageArea : public QScrollArea {
public:
    explicit PageArea(QWidget* parent);

    void SetPage(QWidget* page);

    // The page's own, as if it were not scrolled.
    QSize sizeHint() const override;
    // The page's own up to a bound, so that a window can be made smaller than its pages.
    QSize minimumSizeHint() const override;

protected:
    // Tells the layout around it when the page asks for another size.
    bool eventFilter(QObject* object, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void FollowFocus(QWidget* focused);

    bool _scrolls = false;
};
