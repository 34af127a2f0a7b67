// SPDX-License-Identifier: MIT
#include "kits/BWindow.h"

#include "hdr/ks_assert.h"
#include "kits/BApplication.h"
#include "kits/BView.h"
#include "kits/WindowServer.h"

#include <algorithm>

BWindow::BWindow(KSRect<long> frame, const char* title) : _frame(frame), _title(title ? title : "") {
    if (be_app)
        be_app->_windows.push_back(this);
}

BWindow::~BWindow() {
    Close();
    if (be_app)
        std::erase(be_app->_windows, this);
}

void BWindow::AddChild(BView* view) {
    KS_ASSERT(view && !view->_window);
    _children.emplace_back(view);
    view->_window = this;
}

void BWindow::Show() {
    KS_ASSERT(!IsLocked());
    if (be_app && be_app->_server)
        be_app->_server->Show(this);
}

void BWindow::PostMessage(const BMessage& message) {
    if (be_app)
        be_app->PostMessage(message);
}
