// SPDX-License-Identifier: MIT
// What every kind of control's mirror has in common, and the makers of each kind.
//
// A mirror keeps one widget in step with one control, in two steps: Fetch copies the control's state under
// the window's lock; Apply shows the copy without the lock. The user's edits go the other way, through the
// control's operations named Edit. Everything here runs on the main thread.
#pragma once

#include "toolkit/KSControl.h"

#include <QString>

#include <functional>
#include <memory>

class QLineEdit;
class QMimeData;
class QObject;
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
    // Shows the copy, while the widget's signals are blocked. Does not touch what is shown already, so that
    // a text that is being typed is not disturbed.
    virtual void Apply();
    // Gives the control the text that has been typed and that it does not have yet.
    virtual void Commit() {}

    // The widget that has the keyboard's focus and represents the setting to assistive tools; null where
    // there is nothing to edit.
    virtual QWidget* Editor() const { return nullptr; }
    // The line to type in that the editor is or has; null where there is none.
    QLineEdit* Line() const;
    // What the editor's menu and keys copy; null where there is nothing. The base copies the text of the
    // line, or CopiedText where there is no line.
    virtual std::unique_ptr<QMimeData> Copied() const;
    // Returns what pastes the data as an edit of the user's; null where the data says no value. The base
    // knows the line.
    virtual std::function<void()> Paster(const QMimeData& data);
    // Gives the editor the name of its label or its group.
    virtual void SetName(const QString& name);
    // Shows the control's label, with a mnemonic at `position` unless that is negative. `editor` is the one
    // that a label names, or null.
    virtual void ShowLabel(int position, QWidget* editor);
    // Whether the editor shows the label itself, with the mnemonic in it.
    virtual bool NamesItself() const { return false; }

    // The control's label and visibility as last fetched, and whether the user has changed its value.
    const QString& Label() const { return _label; }
    // The label as there is room to show it. Its tip tells the rest.
    virtual QString ShownLabel() const;
    bool IsHidden() const { return _hidden; }
    bool IsEdited() const { return _is_edited; }

protected:
    void SetWidget(QWidget* widget) { _widget = widget; }
    // The value as a text; empty where it has none.
    virtual QString CopiedText() const { return {}; }
    // Returns the shown label with "&" before the character at `position`, and every "&" of its own doubled.
    QString MarkedLabel(int position) const;

private:
    void ApplyTip();

    KSControl& _control;
    WindowMirror& _window;
    QWidget* _widget = nullptr;
    QString _label;
    QString _tip;
    bool _hidden = false;
    bool _shown_hidden = false;
    bool _is_edited = false;
    QString _bubble_help;
    QObject* _bubble_help_switch = nullptr;  // owned by the widget
};

// Makes the mirror of a control and of everything below it, with a widget inside `parent`. A plain KSControl
// is a group.
std::unique_ptr<ControlMirror> MakeMirror(KSControl& control, WindowMirror& window, QWidget* parent);

class KSButton;
class KSCheckBox;
class KSColorField;
class KSCycle;
class KSLabel;
class KSListView;
class KSLookPreview;
class KSPicture;
class KSPopFile;
class KSPopFont;
class KSSeparator;
class KSSpinBox;

// One maker for each kind, in the file named after the kind.
std::unique_ptr<ControlMirror> MirrorButton(KSButton& control, WindowMirror& window, QWidget* parent);
std::unique_ptr<ControlMirror> MirrorCheckBox(KSCheckBox& control, WindowMirror& window, QWidget* parent);
std::unique_ptr<ControlMirror> MirrorColorField(KSColorField& control, WindowMirror& window, QWidget* parent);
std::unique_ptr<ControlMirror> MirrorCycle(KSCycle& control, WindowMirror& window, QWidget* parent);
std::unique_ptr<ControlMirror> MirrorGroup(KSControl& control, WindowMirror& window, QWidget* parent);
std::unique_ptr<ControlMirror> MirrorLabel(KSLabel& control, WindowMirror& window, QWidget* parent);
std::unique_ptr<ControlMirror> MirrorListView(KSListView& control, WindowMirror& window, QWidget* parent);
std::unique_ptr<ControlMirror> MirrorLookPreview(KSLookPreview& control, WindowMirror& window,
                                                 QWidget* parent);
std::unique_ptr<ControlMirror> MirrorPicture(KSPicture& control, WindowMirror& window, QWidget* parent);
std::unique_ptr<ControlMirror> MirrorPopFile(KSPopFile& control, WindowMirror& window, QWidget* parent);
std::unique_ptr<ControlMirror> MirrorPopFont(KSPopFont& control, WindowMirror& window, QWidget* parent);
std::unique_ptr<ControlMirror> MirrorSeparator(KSSeparator& control, WindowMirror& window, QWidget* parent);
std::unique_ptr<ControlMirror> MirrorSpinBox(KSSpinBox& control, WindowMirror& window, QWidget* parent);
