// SPDX-License-Identifier: MIT
// The list of the pairs of pens that meet on screen, worst first.
#pragma once

#include "display/pairs.h"

#include <QListWidget>

#include <functional>
#include <vector>

class PairList : public QListWidget {
public:
    // `chosen` is called with the pair that the user has clicked or pressed Enter on.
    PairList(std::function<void(const pen_pair&)> chosen, QWidget* parent);

    // Measures and shows the pairs of a look as it was chosen.
    void Show(const Worn& truth);
    // How many of them are too low.
    int HardPairs() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    class Delegate;

    std::function<void(const pen_pair&)> _chosen;
    Worn _truth;
    std::vector<pen_pair> _pairs;  // a row for each
};
