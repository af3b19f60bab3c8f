#pragma once

class frmNote;

// The toolbar and the date-and-time panel of an editor, and the places of all controls of the
// editor. The text takes the space that the other controls leave. The panel is at the bottom. While
// it is hidden, it is below the window's edge.
class NoteLayout {
  public:
    explicit NoteLayout(frmNote& editor) : note(editor) {}

    void Design();
    // Shows or hides the panel by changing the height of the window.
    void ShowPanel(bool show);
    void TogglePanel() { ShowPanel(!showsPanel); }
    // Does nothing while the window is minimised.
    void Arrange();

  private:
    frmNote& note;
    bool showsPanel = true;
};
