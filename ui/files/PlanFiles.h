#pragma once

// Crop plans: the list, the settings and the rectangles adjusted by hand,
// saved to one file and opened again (File → Open Crop Plan, Save Crop
// Plan), and the question asked before adjustments not yet saved in a plan
// are thrown away. The file format is the core's, shared with the command
// line.

#include <QObject>

#include "ui/dialogs/MessageBox.h"

namespace vellumo {

class CropAdjustmentStore;
class ImageList;
class SettingsPanel;
struct WindowServices;

class PlanFiles : public QObject {
    Q_OBJECT

  public:
    // The answers of the question about unsaved adjustments.
    static constexpr BoxAnswer kSaveAdjustments{0};
    static constexpr BoxAnswer kDontSaveAdjustments{1};
    static constexpr BoxAnswer kKeepAdjustments{2};  // "Cancel"

    PlanFiles(ImageList& list, SettingsPanel& settings, CropAdjustmentStore& adjustments,
              WindowServices& services, QObject* parent = nullptr);

    // Asks where and writes the plan of the list, the settings and the
    // adjustments; false when the person cancels or the file cannot be
    // written (which is said).
    bool Save();
    // After agreeing to leave unsaved adjustments, asks for a plan and makes
    // its images the list (each path once), its adjustments the store's and
    // its settings the controls', then tells of it (opened). Images that
    // have gone stay in the list, marked, and a notice names them. A plan
    // that cannot be read changes nothing and says why.
    void Open();
    // The same for the plan at `file`, chosen from the recent ones.
    void OpenRecent(const QString& file);
    // Asks whether adjustments not yet saved in a plan should be, before
    // they are thrown away; false when the person cancels (or the plan could
    // not be saved). True at once when there are none.
    bool AgreeToLeaveAdjustments();

  Q_SIGNALS:
    // A plan replaced the list, the adjustments and the settings.
    void opened();
    // The plan at `path` was opened or saved (for the recent plans).
    void used(const QString& path);

  private:
    void OpenFile(const QString& file);
    void MarkMissingImages();

    ImageList& list_;
    SettingsPanel& settings_;
    CropAdjustmentStore& adjustments_;
    WindowServices& services_;
};

}  // namespace vellumo
