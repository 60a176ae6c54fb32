// Groups of option buttons.
#pragma once

#include <QAbstractButton>
#include <QButtonGroup>

namespace tarnwick {

/// Puts the button of that id down and makes it the one of its group that Tab reaches; the arrow keys go on from there.
inline void CheckOption(const QButtonGroup& group, int id) {
    for (QAbstractButton* button : group.buttons()) {
        const bool chosen = group.id(button) == id;
        button->setFocusPolicy(chosen ? Qt::StrongFocus : Qt::ClickFocus);
        if (chosen) button->setChecked(true);
    }
}

}  // namespace tarnwick
