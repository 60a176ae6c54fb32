// Tab "Payoffs" of the configuration window.
#pragma once

#include "display/configtab.h"

namespace tarnwick {

class PayoffModel;
class PayoffView;

class PayoffsTab final : public ConfigTab {
    Q_OBJECT

  public:
    explicit PayoffsTab(Table& t, QWidget* parent = nullptr);
    ~PayoffsTab() override;

    void ShowSettings() override;
    bool MayLeave() override;
    /// "&Options".
    std::vector<QMenu*> Menus() override { return {Options}; }

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void MakeMenu();
    QWidget* MakeHelp();
    QWidget* MakeGroups();
    /// Runs a change of many payoffs; a number being typed is taken first.
    void ChangeMany(bool (*change)(Table& t, int which), int which);
    void RestoreScroll();

    PayoffModel* Model;
    PayoffView* Grid;
    QMenu* Options;
    bool ScrollFollows = false;  ///< the table keeps where the list stands; not while it is being laid out
};

}  // namespace tarnwick
