// The Search window: a list of databases, a list of criteria, the run of the
// criteria over every vehicle of the listed databases, and the matches, from
// which designs are opened in editors. It reads the files itself and changes
// nothing in them, nor in the open database.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/Controls.h"
#include "core/Forms.h"
#include "search/SearchCriterion.h"
#include "search/SearchRun.h"

namespace bw {

class Vehicle;

class frmSrch : public FormModel {
public:
    frmSrch();

    enum Tab : int16_t { kTabDatabases = 0, kTabCriteria = 1, kTabResults = 2 };
    Control SSTab1{"SSTab1"};
    std::vector<std::string> TabCaptions;
    int16_t SSTab1Tab = kTabDatabases;
    void SetTab(int16_t tab);

    ListView lvDB{"lvDB"}, lvCriteria{"lvCriteria"}, lvResult{"lvResult"};
    Label LSelectedCount{"LSelectedCount"}, LMatchCount{"LMatchCount"};
    CommandButton PButAddDB{"PButAddDB"}, PButRemoveDB{"PButRemoveDB"}, PButAddCrit{"PButAddCrit"},
        PButRemoveCrit{"PButRemoveCrit"}, PButSaveCrit{"PButSaveCrit"}, PButLoadCrit{"PButLoadCrit"},
        PButSearch{"PButSearch"}, PButStop{"PButStop"}, PButOpenSelected{"PButOpenSelected"}, PButDone{"PButDone"};
    // The run's progress: one step per database; Stop ends the run.
    ProgressBar PBarSearch{"PBarSearch"};
    Label LProgress{"LProgress"};

    // The criteria, in step with the rows of lvCriteria.
    std::vector<SearchCriterion> wCriteria;
    // The contents of the database read last.
    LoadedDatabase wLoaded;
    bool wSearching = false;
    bool wCancelSearch = false;
    int32_t wSortColumn = -1;
    bool wSortAscending = true;

    // How a found design reaches an editor; the main window sets it so that
    // the editor takes its place in the cascade and saves through it.
    // Unset, the editor opens on its own with this window's owner.
    std::function<void(const Vehicle&)> OpenVehicle;

    void Form_QueryUnload(bool& cancel) override;

    // Databases.
    void PButAddDB_Click();
    // The checks of an add: not on the list already, certified; then the row.
    // True when the row was added.
    bool zAddDatabase(const std::string& path);
    void zAddDBToList(const std::string& path);
    void PButRemoveDB_Click();
    // The databases listed, in list order.
    std::vector<std::string> DatabasePaths() const;

    // Criteria.
    void PButAddCrit_Click();
    void zAddCriterion(const SearchCriterion& c);
    void PButRemoveCrit_Click();
    void PButSaveCrit_Click();
    void PButLoadCrit_Click();
    void zFillCriteriaList();

    // The run and the results.
    void PButSearch_Click();
    void PButStop_Click() { wCancelSearch = true; }
    void SortResults(int32_t column);
    void lvResult_SelectionChanged();
    void PButOpenSelected_Click();
    void PButDone_Click() { Unload(); }

private:
    void zSetSearching(bool on);
    void zAddResult(const SearchMatch& m);
};

}  // namespace bw
