// SPDX-License-Identifier: MIT
// What every kind of control's mirror has in common, and the makers of each kind.
//
// A mirror keeps one widget in step with one control, in two strokes: Fetch copies the control's state under
// the window's lock, Apply shows the copy after the lock is given back. What the user does goes the other
// way, through the control's Edit... operations. Everything here runs on the main thread.
#pragma once

#include "toolkit/KSControl.h"

#include <QString>

#include <memory>

class QWidget;
class WindowMirror;

class ControlMirror {
public:
    ControlMirror(KSControl& control, WindowMirror& window);
    virtual ~ControlMirror() = default;
    ControlMirror(const ControlMirror&) = delete;
    ControlMirror& operator=(const ControlMirror&) = delete;

    KSControl& Control() const { return _control; }
    WindowMirror& Window() const { return _window; }
    // The control's widget, owned by its parent widget; null for a spacer.
    QWidget* Widget() const { return _widget; }

    // Copies the control's state. Called under the window's lock; calls the control's hooks.
    virtual void Fetch();
    // Shows the copy. The widget reports nothing meanwhile, and keeps what it already shows: a text
    // that is being typed is not disturbed.
    virtual void Apply();
    // Gives the control what has been typed and not yet been taken over.
    virtual void Commit() {}

    // The widget that takes the keyboard and that assistive tools know the setting by; null where there
    // is nothing to edit.
    virtual QWidget* Editor() const { return nullptr; }
    // Gives the editor the name of the label or the group that it stands under.
    virtual void SetName(const QString& name);
    // Shows the control's label, with a mnemonic at `position` unless that is negative. `editor` is the
    // editor that a label stands beside, or null.
    virtual void ShowLabel(int position, QWidget* editor);
    // Whether the control shows its label as its editor's own name, and a mnemonic in it.
    virtual bool NamesItself() const { return false; }

    // The control's label and visibility as last fetched.
    const QString& Label() const { return _label; }
    bool IsHidden() const { return _hidden; }

protected:
    void SetWidget(QWidget* widget) { _widget = widget; }
    // Returns the label with "&" before the character at `position`, and every "&" of its own doubled.
    QString MarkedLabel(int position) const;

private:
    KSControl& _control;
    WindowMirror& _window;
    QWidget* _widget = nullptr;
    QString _label;
    bool _hidden = false;
    bool _shown_hidden = false;
};

// Makes the mirror of a control and of everything below it, with a widget inside `parent`. The control's
// kind decides; one that is no special kind is a group.
std::unique_ptr<ControlMirror> MakeMirror(KSControl& control, WindowMirror& window, QWidget* parent);

class KSButton;
class KSCheckBox;
class KSColorField;
class KSCycle;
class KSLabel;
class KSListView;
class KSPicture;
class KSPopFile;
class KSPopFont;
class KSSeparator;
class KSSpinBox;

// One maker for each kind, each in the file of the kind's name.
std::unique_ptr<ControlMirror> MirrorButton(KSButton& control, WindowMirror& window, QWidget* parent);
std::unique_ptr<ControlMirror> MirrorCheckBox(KSCheckBox& control, WindowMirror& window, QWidget* parent);
std::unique_ptr<ControlMirror> MirrorColorField(KSColorField& control, WindowMirror& window, QWidget* parent);
std::unique_ptr<ControlMirror> MirrorCycle(KSCycle& control, WindowMirror& window, QWidget* parent);
std::unique_ptr<ControlMirror> MirrorGroup(KSControl& control, WindowMirror& window, QWidget* parent);
std::unique_ptr<ControlMirror> MirrorLabel(KSLabel& control, WindowMirror& window, QWidget* parent);
std::unique_ptr<ControlMirror> MirrorListView(KSListView& control, WindowMirror& window, QWidget* parent);
std::unique_ptr<ControlMirror> MirrorPicture(KSPicture& control, WindowMirror& window, QWidget* parent);
std::unique_ptr<ControlMirror> MirrorPopFile(KSPopFile& control, WindowMirror& window, QWidget* parent);
std::unique_ptr<ControlMirror> MirrorPopFont(KSPopFont& control, WindowMirror& window, QWidget* parent);
std::unique_ptr<ControlMirror> MirrorSeparator(KSSeparator& control, WindowMirror& window, QWidget* parent);
std::unique_ptr<ControlMirror> MirrorSpinBox(KSSpinBox& control, WindowMirror& window, QWidget* parent);
