#pragma once
// The window of one open project inside the main window: it owns the project's document and view,
// keeps its normal (not maximized) rectangle for the file, and asks before it closes.
#include "app/DocumentCommands.h"
#include "document/CVeltoDoc.h"

#include <QMdiSubWindow>
#include <QRect>

#include <memory>

namespace velto {

class CMainFrame;
class CVeltoView;
struct ProjectViewValues;

class CChildFrame : public QMdiSubWindow {
    Q_OBJECT
public:
    // Takes the document and the view made for it.
    CChildFrame(std::unique_ptr<CVeltoDoc> doc, CVeltoView* view, CMainFrame& frame);
    ~CChildFrame() override;

    CVeltoDoc& GetDocument() const { return *m_doc; }
    CVeltoView& GetView() const { return *m_view; }
    DocumentCommands& Commands() { return m_commands; }

    // The document's title in the window's caption, with the modified mark.
    void RefreshTitle();
    // The view values the project file keeps: the view's layout, maximized or not, the normal rectangle.
    void StoreViewValues(ProjectViewValues& values) const;
    // Takes the view values of a file just read, placing the window inside an MDI area of the given
    // size on a screen of the given size. False when the stored rectangle was unusable (the caller
    // places the window itself).
    bool ApplyViewValues(const ProjectViewValues& values, const QSize& mdiArea, const QSize& screen);
    QRect NormalGeometry() const { return m_normalGeometry; }
    // Closes without asking (the question was asked for all projects at once).
    void CloseConfirmed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void RememberNormalGeometry();

    std::unique_ptr<CVeltoDoc> m_doc;
    CVeltoView* m_view;
    DocumentCommands m_commands;
    QRect m_normalGeometry;
    bool m_closeConfirmed = false;
};

} // namespace velto
