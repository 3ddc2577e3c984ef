#include "search/frmSrch.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>

#include "core/Errors.h"
#include "core/Globals.h"
#include "core/Helpers.h"
#include "core/Ui.h"
#include "core/Vocabulary.h"
#include "fighter/Fighter.h"
#include "search/frmCriteria.h"
#include "vehicle/Vehicle.h"
#include "vehicle/frmVhl.h"

namespace bw {

namespace {

constexpr const char* kDbFilter = "Database Files (*.bwd)|*.bwd";
constexpr const char* kCriteriaFilter = "Search Criteria (*.json)|*.json|All Files (*.*)|*.*";
constexpr const char* kNoCriteria = "You have not defined any search criteria.";

std::vector<int32_t> SelectedRows(const ListView& lv) {
    std::vector<int32_t> rows;
    for (int32_t i = 0; i < lv.Count(); ++i)
        if (lv.Item(i).Selected) rows.push_back(i);
    return rows;
}

// A class's two columns: its count and its Inner Sphere and Clan shares.
template <class Design>
void ClassColumns(ListView::ListItem& row, size_t first, const std::vector<std::shared_ptr<Design>>& table,
                  bool present) {
    if (!present) {
        row.SetSubItem(first, "N/A");
        row.SetSubItem(first + 1, "N/A");
        return;
    }
    int32_t is = 0, clan = 0;
    for (const auto& d : table) {
        if (d->TechBase == kBaseInnerSphere) ++is;
        else if (d->TechBase == kBaseClan) ++clan;
    }
    const double n = static_cast<double>(table.size());
    row.SetSubItem(first, std::to_string(table.size()));
    row.SetSubItem(first + 1, std::to_string(zCLng(100.0 * is / n)) + "%/" + std::to_string(zCLng(100.0 * clan / n)) +
                                  "%");
}

// Columns of lvResult that hold numbers sort as numbers.
bool NumericColumn(int32_t column) { return column >= 2 && column <= 5; }

std::string LowerText(const std::string& s) {
    std::string out = s;
    for (char& c : out) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return out;
}

}  // namespace

frmSrch::frmSrch() : FormModel("frmSrch") {
    Window.SetCaption("Search");
    TabCaptions = {"Databases", "Search Criteria", "Results"};
    lvDB.ColumnHeaders = {"Database", "Vehicles", "IS/Clan", "Fighters", "IS/Clan"};
    lvCriteria.ColumnHeaders = {"Movement Type", "Tech Base", "Tech Level", "Tonnage", "Speed", "Other"};
    lvResult.ColumnHeaders = {"Name", "Type", "Base", "Level", "Tonnage", "Speed", "Database"};
    for (ListView* lv : {&lvDB, &lvCriteria, &lvResult}) lv->FullRowSelect = true;
    LSelectedCount.SetCaption("Total Selected: 0");
    LMatchCount.SetCaption("Total Matches: 0");
    PButAddDB.SetCaption("&Add Database...");
    PButRemoveDB.SetCaption("&Remove Database");
    PButAddCrit.SetCaption("&New Criteria...");
    PButRemoveCrit.SetCaption("&Remove Criteria");
    PButSaveCrit.SetCaption("Save Criteria...");
    PButLoadCrit.SetCaption("Load Criteria...");
    PButSearch.SetCaption("&Search");
    PButStop.SetCaption("S&top");
    PButOpenSelected.SetCaption("Open Selected");
    PButDone.SetCaption("&Done");
    PButStop.SetEnabled(false);
    PBarSearch.SetVisible(false);
    LProgress.SetVisible(false);

    PButAddDB.Click = [this] { PButAddDB_Click(); };
    PButRemoveDB.Click = [this] { PButRemoveDB_Click(); };
    PButAddCrit.Click = [this] { PButAddCrit_Click(); };
    PButRemoveCrit.Click = [this] { PButRemoveCrit_Click(); };
    PButSaveCrit.Click = [this] { PButSaveCrit_Click(); };
    PButLoadCrit.Click = [this] { PButLoadCrit_Click(); };
    PButSearch.Click = [this] { PButSearch_Click(); };
    PButStop.Click = [this] { PButStop_Click(); };
    PButOpenSelected.Click = [this] { PButOpenSelected_Click(); };
    PButDone.Click = [this] { PButDone_Click(); };
    lvResult.ColumnClick = [this](int32_t column) { SortResults(column); };
    lvResult.ItemClick = [this](int32_t) { lvResult_SelectionChanged(); };
    // A double click opens what is selected, as the button does.
    lvResult.DblClick = [this] { PButOpenSelected_Click(); };
}

void frmSrch::SetTab(int16_t tab) {
    SSTab1Tab = tab;
    SSTab1.SetCaption(TabCaptions[static_cast<size_t>(tab)]);
}

void frmSrch::Form_QueryUnload(bool& cancel) {
    // A running search is stopped first; the window closes when asked again.
    if (wSearching) {
        wCancelSearch = true;
        cancel = true;
    }
}

// ---- Databases ---------------------------------------------------------------

void frmSrch::PButAddDB_Click() {
    zTrapVoid("PButAddDB_Click", [&] {
        const std::string path = zDlgOpenFile("Open", 0, kDbFilter);
        if (!path.empty()) zAddDatabase(path);
    });
}

bool frmSrch::zAddDatabase(const std::string& path) {
    const std::string wanted = zNormalizePath(path);
    for (const auto& listed : DatabasePaths())
        if (zNormalizePath(listed) == wanted) {
            zMsgBox("That database is already on your list.", MsgButtons::OK, MsgIcon::Information,
                    "Database on list");
            return false;
        }
    bool ok = false;
    TValidDatabase(path, ok);
    if (!ok) return false;
    const int32_t before = lvDB.Count();
    zAddDBToList(path);
    return lvDB.Count() > before;
}

void frmSrch::zAddDBToList(const std::string& path) {
    zTrapVoid("zAddDBToList", [&] {
        // A file that cannot be read through is reported and stays off the
        // list.
        if (!zOpenDB(path, wLoaded)) return;
        ListView::ListItem& row = lvDB.Add({}, path);
        row.Tag = path;
        ClassColumns(row, 1, wLoaded.vehicles, wLoaded.HasVehicles());
        ClassColumns(row, 3, wLoaded.fighters, wLoaded.HasFighters());
        lvDB.Refresh();
    });
}

std::vector<std::string> frmSrch::DatabasePaths() const {
    std::vector<std::string> out;
    for (int32_t i = 0; i < lvDB.Count(); ++i) out.push_back(lvDB.Item(i).Tag);
    return out;
}

void frmSrch::PButRemoveDB_Click() {
    zTrapVoid("PButRemoveDB_Click", [&] {
        const std::vector<int32_t> rows = SelectedRows(lvDB);
        if (rows.empty()) return;
        if (zMsgBox("Are you sure you want to remove the select databases from the search list?", MsgButtons::YesNo,
                    MsgIcon::Question, "Remove from list?") != MsgResult::Yes)
            return;
        BatchUpdate batch(lvDB);
        for (auto it = rows.rbegin(); it != rows.rend(); ++it) lvDB.Remove(*it);
    });
}

// ---- Criteria -----------------------------------------------------------------

void frmSrch::PButAddCrit_Click() {
    zTrapVoid("PButAddCrit_Click", [&] {
        frmCriteria dlg;
        zShowModal(dlg, this);
        if (dlg.wCancel == 0) zAddCriterion(dlg.Criterion);
    });
}

void frmSrch::zAddCriterion(const SearchCriterion& c) {
    wCriteria.push_back(c);
    const auto texts = zCriterionTexts(c);
    ListView::ListItem& row = lvCriteria.Add({}, texts[0]);
    for (size_t i = 1; i < texts.size(); ++i) row.SetSubItem(i, texts[i]);
    lvCriteria.Refresh();
}

void frmSrch::zFillCriteriaList() {
    BatchUpdate batch(lvCriteria);
    const std::vector<SearchCriterion> all = wCriteria;
    wCriteria.clear();
    lvCriteria.Clear();
    for (const auto& c : all) zAddCriterion(c);
}

void frmSrch::PButRemoveCrit_Click() {
    zTrapVoid("PButRemoveCrit_Click", [&] {
        const std::vector<int32_t> rows = SelectedRows(lvCriteria);
        if (rows.empty()) return;
        if (zMsgBox("Are you sure you want to remove the select search criteria from the list?", MsgButtons::YesNo,
                    MsgIcon::Question, "Remove?") != MsgResult::Yes)
            return;
        // Marked, then compacted in order.
        for (int32_t r : rows)
            if (static_cast<size_t>(r) < wCriteria.size()) wCriteria[static_cast<size_t>(r)].UnitClass = -1;
        std::erase_if(wCriteria, [](const SearchCriterion& c) { return c.UnitClass < 0; });
        zFillCriteriaList();
    });
}

void frmSrch::PButSaveCrit_Click() {
    zTrapVoid("PButSaveCrit_Click", [&] {
        if (wCriteria.empty()) {
            zMsgBox(kNoCriteria, MsgButtons::OK, MsgIcon::Information, "No Criteria");
            return;
        }
        std::string path = zDlgSaveFile("Save Criteria", 0, kCriteriaFilter);
        if (path.empty()) return;
        if (zGetFileFromPath(path).find('.') == std::string::npos) path += ".json";
        zWriteCriteriaFile(path, wCriteria);
    });
}

void frmSrch::PButLoadCrit_Click() {
    zTrapVoid("PButLoadCrit_Click", [&] {
        const std::string path = zDlgOpenFile("Load Criteria", 0, kCriteriaFilter);
        if (path.empty()) return;
        const CriteriaFileResult r = zReadCriteriaFile(path);
        if (!r.ok) {
            zMsgBox("The criteria in " + path + " could not be loaded: " + r.error + ".", MsgButtons::OK,
                    MsgIcon::Critical, "Unable to load criteria");
            return;
        }
        // The file's list replaces the one shown.
        wCriteria = r.criteria;
        zFillCriteriaList();
        SetTab(kTabCriteria);
    });
}

// ---- The run and the results ------------------------------------------------------

void frmSrch::zSetSearching(bool on) {
    wSearching = on;
    for (CommandButton* b : {&PButAddDB, &PButRemoveDB, &PButAddCrit, &PButRemoveCrit, &PButSaveCrit, &PButLoadCrit,
                             &PButSearch, &PButOpenSelected, &PButDone})
        b->SetEnabled(!on);
    PButStop.SetEnabled(on);
    PBarSearch.SetVisible(on);
    LProgress.SetVisible(on);
}

void frmSrch::zAddResult(const SearchMatch& m) {
    ListView::ListItem& row = lvResult.Add(zResultKey(m.Index, m.Database), m.Name);
    row.SetSubItem(1, zVehicleTypeName(m.VhlType));
    row.SetSubItem(2, std::to_string(m.TechBase));
    row.SetSubItem(3, std::to_string(m.TechLevel));
    row.SetSubItem(4, std::to_string(m.Tonnage));
    row.SetSubItem(5, std::to_string(m.CruiseSpeed));
    row.SetSubItem(6, m.Database);
}

void frmSrch::PButSearch_Click() {
    if (wSearching) return;
    if (lvDB.Count() == 0) {
        gUi().Beep();
        zMsgBox("You have no databases selected.", MsgButtons::OK, MsgIcon::Critical, "No Databases");
        return;
    }
    if (lvCriteria.Count() == 0 || wCriteria.empty()) {
        gUi().Beep();
        zMsgBox(kNoCriteria, MsgButtons::OK, MsgIcon::Critical, "No Criteria");
        SetTab(kTabCriteria);
        return;
    }
    zPointerWait();
    const std::vector<std::string> paths = DatabasePaths();
    const std::vector<SearchCriterion> criteria = wCriteria;
    {
        // The rows reach the window once, at the end of the run.
        BatchUpdate batch(lvResult);
        lvResult.Clear();
        wSortColumn = -1;
        LSelectedCount.SetCaption("Total Selected: 0");
        wCancelSearch = false;
        zSetSearching(true);
        PBarSearch.SetMax(std::max<int32_t>(1, static_cast<int32_t>(paths.size())));
        PBarSearch.SetValue(0);
        const auto keepGoing = [this] {
            zDoEvents();
            return !wCancelSearch;
        };
        for (size_t i = 0; i < paths.size() && keepGoing(); ++i) {
            LProgress.SetCaption("Searching " + paths[i]);
            // A file damaged or replaced since it was listed is reported
            // and skipped.
            bool ok = false;
            TValidDatabase(paths[i], ok);
            if (ok) zSearchDatabase(paths[i], criteria, [this](const SearchMatch& m) { zAddResult(m); }, keepGoing);
            PBarSearch.SetValue(static_cast<int32_t>(i + 1));
        }
        zSetSearching(false);
    }
    zPointerNormal();
    LMatchCount.SetCaption("Total Matches: " + std::to_string(lvResult.Count()));
    if (lvResult.Count() == 0) {
        if (!wCancelSearch)
            zMsgBox("There were no units that fit your search criteria in the selected databases.", MsgButtons::OK,
                    MsgIcon::Information, "Search result empty");
        return;
    }
    SetTab(kTabResults);
}

void frmSrch::SortResults(int32_t column) {
    zTrapVoid("SortResults", [&] {
        if (column < 0 || column >= static_cast<int32_t>(lvResult.ColumnHeaders.size())) return;
        wSortAscending = column == wSortColumn ? !wSortAscending : true;
        wSortColumn = column;
        std::vector<ListView::ListItem> rows;
        for (int32_t i = 0; i < lvResult.Count(); ++i) rows.push_back(lvResult.Item(i));
        const auto text = [column](const ListView::ListItem& r) { return column == 0 ? r.Text : r.SubItem(column); };
        const auto less = [&](const ListView::ListItem& a, const ListView::ListItem& b) {
            if (NumericColumn(column)) return std::atol(text(a).c_str()) < std::atol(text(b).c_str());
            return LowerText(text(a)) < LowerText(text(b));
        };
        std::stable_sort(rows.begin(), rows.end(), [&](const auto& a, const auto& b) {
            return wSortAscending ? less(a, b) : less(b, a);
        });
        BatchUpdate batch(lvResult);
        lvResult.Clear();
        for (const auto& r : rows) {
            ListView::ListItem& row = lvResult.Add(r.Key, r.Text);
            row.SubItems = r.SubItems;
            row.Selected = r.Selected;
        }
    });
}

void frmSrch::lvResult_SelectionChanged() {
    LSelectedCount.SetCaption("Total Selected: " + std::to_string(SelectedRows(lvResult).size()));
}

void frmSrch::PButOpenSelected_Click() {
    zTrapVoid("PButOpenSelected_Click", [&] {
        const std::vector<int32_t> rows = SelectedRows(lvResult);
        if (rows.empty()) {
            zMsgBox("You have not selected anything.", MsgButtons::OK, MsgIcon::Information, "Nothing selected");
            return;
        }
        std::vector<std::string> keys;
        for (int32_t r : rows) keys.push_back(lvResult.Item(r).Key);
        std::string loadedPath;
        bool loaded = false;
        for (const auto& key : keys) {
            int32_t index = 0;
            std::string path;
            if (!zParseResultKey(key, index, path)) continue;
            // Rows of one database share one read.
            if (!loaded || path != loadedPath) {
                loadedPath = path;
                loaded = zOpenDB(path, wLoaded);
            }
            if (!loaded || !wLoaded.HasVehicles() || static_cast<size_t>(index) >= wLoaded.vehicles.size()) continue;
            const Vehicle& v = *wLoaded.vehicles[static_cast<size_t>(index)];
            if (OpenVehicle) {
                OpenVehicle(v);
            } else {
                auto editor = frmVhl::zOpenDesign(v);
                editor->SSTab1_Click(0);
                zShowModeless(std::move(editor), Owner);
            }
        }
    });
}

}  // namespace bw
