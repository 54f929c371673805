#!/usr/bin/python3
"""The window as assistive technology sees it, over a real AT-SPI bus.

Finds every interactive control of both tabs by role and name (none may be
unnamed), then crops a batch through accessibility actions only: choose the
1:1 auto crop, type the output folder, press Crop Images and read the
report's text. Run by run_a11y_test.sh inside a private D-Bus session with
Xvfb; the images are given to the window on its command line.

usage: a11y_batch.py OUTPUT_FOLDER
"""
import sys
import time

import pyatspi

INTERACTIVE = {
    pyatspi.ROLE_PUSH_BUTTON, pyatspi.ROLE_CHECK_BOX, pyatspi.ROLE_RADIO_BUTTON,
    pyatspi.ROLE_COMBO_BOX, pyatspi.ROLE_TEXT, pyatspi.ROLE_SPIN_BUTTON,
    pyatspi.ROLE_SLIDER, pyatspi.ROLE_TOGGLE_BUTTON, pyatspi.ROLE_PAGE_TAB,
    pyatspi.ROLE_MENU_ITEM, pyatspi.ROLE_TABLE, pyatspi.ROLE_LIST,
    pyatspi.ROLE_TREE_TABLE, pyatspi.ROLE_ENTRY, pyatspi.ROLE_PASSWORD_TEXT,
}


def wait_for(what, find, seconds=30.0):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        found = find()
        if found:
            return found
        time.sleep(0.2)
    sys.exit("a11y: gave up waiting for " + what)


def application():
    for app in pyatspi.Registry.getDesktop(0):
        if app is not None and app.name and app.name.lower() == "vellumo":
            return app
    return None


def nodes(root):
    """Every accessible below root that is showing, depth first."""
    stack = [root]
    while stack:
        node = stack.pop()
        try:
            showing = node.getState().contains(pyatspi.STATE_SHOWING)
            children = [node.getChildAtIndex(i) for i in range(node.childCount)]
        except Exception:
            continue
        if node is not root and not showing:
            continue
        yield node
        stack.extend(c for c in reversed(children) if c is not None)


def controls(app):
    found = []
    for node in nodes(app):
        if node.getRole() in INTERACTIVE:
            found.append((node.getRoleName(), node.name or "", node))
    return found


def find(app, role, name):
    for node in nodes(app):
        if node.getRole() == role and node.name == name:
            return node
    return None


def act(node, *names):
    """Carries out the node's first action among names (Press, Toggle, ...)."""
    action = node.queryAction()
    for i in range(action.nActions):
        if action.getName(i) in names:
            action.doAction(i)
            return
    sys.exit("a11y: %r offers none of %s" % (node.name, names))


def texts_of(root):
    out = []
    for node in nodes(root):
        if node.getRole() == pyatspi.ROLE_LABEL and node.name:
            out.append(node.name)
    return out


def main():
    output = sys.argv[1]
    app = wait_for("the window on the accessibility bus", application)
    crop_tab = wait_for("the Crop tab", lambda: find(app, pyatspi.ROLE_PAGE_TAB, "Crop"))
    output_tab = find(app, pyatspi.ROLE_PAGE_TAB, "Output")

    seen = controls(app)
    act(output_tab, "Press", "Switch", "SetFocus")
    time.sleep(0.5)
    seen += controls(app)
    act(crop_tab, "Press", "Switch", "SetFocus")
    time.sleep(0.5)
    # Controls outside the tabs were seen twice, once with each tab.
    unique = sorted({(role, name) for role, name, _ in seen})
    unnamed = [role for role, name, _ in seen if not name.strip()]
    print("a11y: %d interactive controls seen, %d without a name" % (len(unique), len(unnamed)))
    for role, name in unique:
        print("a11y:   %-12s %s" % (role, name or "<UNNAMED>"))

    act(find(app, pyatspi.ROLE_CHECK_BOX, "Auto crop to the aspect ratio")
        or find(app, pyatspi.ROLE_RADIO_BUTTON, "Auto crop to the aspect ratio"),
        "Press", "Toggle")
    act(output_tab, "Press", "Switch", "SetFocus")
    folder = wait_for("the output folder field",
                      lambda: find(app, pyatspi.ROLE_TEXT, "Output folder"))
    folder.queryEditableText().setTextContents(output)
    act(find(app, pyatspi.ROLE_PUSH_BUTTON, "Crop Images"), "Press")

    def report():
        for node in nodes(app):
            if node.getRole() in (pyatspi.ROLE_ALERT, pyatspi.ROLE_DIALOG):
                texts = texts_of(node)
                if texts:
                    return node, texts
        return None
    box, texts = wait_for("the report", report, 120.0)
    print("a11y: report: " + " | ".join(texts))
    if "Images cropped successfully." not in texts:
        sys.exit("a11y: the report does not say the images were cropped")
    for node in nodes(box):
        if node.getRole() == pyatspi.ROLE_PUSH_BUTTON and node.name == "OK":
            act(node, "Press")
    return 1 if unnamed else 0


if __name__ == "__main__":
    sys.exit(main())
