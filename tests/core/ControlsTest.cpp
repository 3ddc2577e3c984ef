#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/Controls.h"
#include "core/Errors.h"
#include "support/RaisesError.h"

using namespace bw;

TEST(ScrollBarModel, ChangeFiresAtOnceAndReentersOtherControls) {
    ScrollBar tonnage, speed;
    tonnage.SetMax(100);
    speed.SetMax(20);
    std::vector<std::string> trace;
    speed.Change = [&] { trace.push_back("speed=" + std::to_string(speed.Value())); };
    tonnage.Change = [&] {
        trace.push_back("tonnage begin");
        speed.SetValue(static_cast<int16_t>(tonnage.Value() / 5));  // re-entry into speed's handler
        trace.push_back("tonnage end");
    };
    tonnage.SetValue(50);
    EXPECT_EQ(trace, (std::vector<std::string>{"tonnage begin", "speed=10", "tonnage end"}));
}

TEST(ScrollBarModel, EqualValueHeldLimitAndRangeChecks) {
    ScrollBar s;
    s.SetMin(1);
    s.SetMax(5);
    int fired = 0;
    s.Change = [&] { ++fired; };
    s.SetValue(5);
    s.SetValue(5);
    s.StepUp();  // held at the limit
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(s.Value(), 5);
    EXPECT_EQ(test::ErrNumberOf([&] { s.SetValue(6); }), kErrInvalidPropertyValue);
    EXPECT_EQ(s.Value(), 5);
    s.SmallChange = 3;
    s.StepDown();
    s.StepDown();  // stops at Min, not below
    EXPECT_EQ(s.Value(), 1);
    EXPECT_EQ(fired, 3);
    // Lowering the maximum pulls the value in and fires.
    s.SetValue(4);
    s.SetMax(2);
    EXPECT_EQ(s.Value(), 2);
    EXPECT_EQ(fired, 5);
}

TEST(TextBoxModel, ChangeOnlyOnDifferentTextAndMaxLengthCuts) {
    TextBox t;
    int fired = 0;
    t.Change = [&] { ++fired; };
    t.SetText("abc");
    t.SetText("abc");
    EXPECT_EQ(fired, 1);
    t.MaxLength = 2;
    t.SetText("xyz");
    EXPECT_EQ(t.Text(), "xy");
}

TEST(ObserverModel, EveryPropertyChangeNotifiesUntilUnsubscribed) {
    Label l;
    int seen = 0;
    int id = l.Subscribe([&] { ++seen; });
    l.SetCaption("Free");
    l.SetCaption("Free");
    l.SetForeColor(255);
    l.SetVisible(false);
    EXPECT_EQ(seen, 3);
    l.Unsubscribe(id);
    l.SetCaption("x");
    EXPECT_EQ(seen, 3);
}

TEST(OptionButtonModel, SettingOneClearsItsGroup) {
    OptionButton a, b, c;
    std::vector<OptionButton*> group{&a, &b, &c};
    for (auto* o : group) o->SetGroup(&group);
    int clicks = 0;
    b.Click = [&] { ++clicks; };
    a.SetValue(true);
    b.SetValue(true);
    EXPECT_FALSE(a.Value());
    EXPECT_TRUE(b.Value());
    EXPECT_EQ(clicks, 1);
}

TEST(ListControlModel, SelectionItemDataAndRemoval) {
    ComboBox c;
    c.AddItem("Tracked");
    c.AddItem("Wheeled");
    c.AddItem("Hover");
    c.SetItemData(2, 42);
    int clicks = 0;
    c.Click = [&] { ++clicks; };
    c.SetText("Hover");
    EXPECT_EQ(c.ListIndex(), 2);
    EXPECT_EQ(c.ItemData(c.ListIndex()), 42);
    c.SetListIndex(2);
    EXPECT_EQ(clicks, 1);
    c.RemoveItem(0);
    EXPECT_EQ(c.ListIndex(), 1);
    EXPECT_EQ(c.Text(), "Hover");
    EXPECT_EQ(test::ErrNumberOf([&] { c.SetListIndex(5); }), kErrInvalidPropertyValue);
    ListBox sorted;
    sorted.Sorted = true;
    for (auto s : {"b", "c", "a"}) sorted.AddItem(s);
    EXPECT_EQ((std::vector<std::string>{sorted.List(0), sorted.List(1), sorted.List(2)}),
              (std::vector<std::string>{"a", "b", "c"}));
}

TEST(ListControlModel, SelectedFlagsSingleAndMulti) {
    ListBox single;
    for (auto s : {"Bulldog", "Zephyr", "Harasser"}) single.AddItem(s);
    single.SetSelected(1, true);
    EXPECT_EQ(single.ListIndex(), 1);
    EXPECT_FALSE(single.Selected(0));
    single.SetSelected(0, false);  // not the chosen line: nothing changes
    EXPECT_EQ(single.ListIndex(), 1);
    single.SetSelected(1, false);
    EXPECT_EQ(single.ListIndex(), -1);
    EXPECT_EQ(single.SelCount(), 0);

    ListBox multi;
    multi.MultiSelect = true;
    int clicks = 0;
    multi.Click = [&] { ++clicks; };
    for (auto s : {"Bulldog", "Zephyr", "Harasser"}) multi.AddItem(s);
    multi.SetSelected(0, true);
    multi.SetSelected(2, true);
    multi.SetSelected(2, true);  // already marked: no event
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(multi.SelCount(), 2);
    EXPECT_EQ(multi.ListIndex(), 2);
    multi.RemoveItem(0);  // the mark leaves with its line
    EXPECT_EQ(multi.SelCount(), 1);
    EXPECT_TRUE(multi.Selected(1));
    EXPECT_EQ(test::ErrNumberOf([&] { multi.Selected(3); }), kErrInvalidPropertyValue);
}

TEST(ListViewModel, KeysAreUniqueAndSortIsByText) {
    ListView lv;
    lv.Add("v0", "Alpha").SetSubItem(3, "20");
    lv.Add("v1", "Bravo").SetSubItem(3, "100");
    lv.Add("v2", "Charlie").SetSubItem(3, "5");
    EXPECT_EQ(test::ErrNumberOf([&] { lv.Add("v1", "again"); }), kErrKeyNotUnique);
    lv.SortByColumn(3);
    // As text: "100" < "20" < "5".
    EXPECT_EQ((std::vector<std::string>{lv.Item(0).Key, lv.Item(1).Key, lv.Item(2).Key}),
              (std::vector<std::string>{"v1", "v0", "v2"}));
    int clicked = -1;
    lv.ItemClick = [&](int32_t i) { clicked = i; };
    lv.Select(2);
    EXPECT_EQ(clicked, 2);
    ASSERT_NE(lv.SelectedItem(), nullptr);
    EXPECT_EQ(lv.SelectedItem()->Key, "v2");
}

TEST(TreeViewModel, KeysParentsRemovalAndExpandEvent) {
    TreeView tv;
    tv.Add("", "Energy", "Energy Weapons");
    tv.Add("Energy", "w1-0", "Medium Laser");
    tv.Add("w1-0", "w1-0x", "child");
    tv.Add("", "Missile", "Missiles");
    EXPECT_EQ(test::ErrNumberOf([&] { tv.Add("", "Energy", "dup"); }), kErrKeyNotUnique);
    EXPECT_EQ(test::ErrNumberOf([&] { tv.Add("nope", "k", "t"); }), kErrElementNotFound);
    std::string expanded;
    tv.Expand = [&](const std::string& k) { expanded = k; };
    tv.SetExpanded("Energy", true);
    EXPECT_EQ(expanded, "Energy");
    expanded.clear();
    tv.SetExpanded("Energy", true);  // already open: nothing
    EXPECT_EQ(expanded, "");
    tv.Select("w1-0");
    tv.Remove("Energy");
    EXPECT_EQ(tv.Count(), 1);
    EXPECT_EQ(tv.SelectedKey(), "");
    EXPECT_EQ(tv.Children("").size(), 1u);
}

TEST(TimerModel, TicksOnlyWhenEnabledWithInterval) {
    Timer t;
    int ticks = 0;
    t.OnTimer = [&] { ++ticks; };
    t.Tick();
    t.Interval = 500;
    t.Tick();
    t.SetEnabled(false);
    t.Tick();
    EXPECT_EQ(ticks, 1);
}

TEST(ObserverModel, BatchGathersNoticesIntoOneAndKeepsEventsImmediate) {
    TreeView tv;
    int notices = 0;
    tv.Subscribe([&] { ++notices; });
    std::string expanded;
    tv.Expand = [&](const std::string& k) { expanded = k; };
    {
        BatchUpdate outer(tv);
        tv.Add("", "node0", "Energy Weapons");
        {
            BatchUpdate inner(tv);
            for (int i = 0; i < 50; ++i) tv.Add("node0", "w" + std::to_string(i), "row");
        }
        EXPECT_EQ(notices, 0);  // the inner scope ends inside the outer one
        tv.SetExpanded("node0", true);
        EXPECT_EQ(expanded, "node0");  // events are not held back
    }
    EXPECT_EQ(notices, 1);
    {
        BatchUpdate idle(tv);  // nothing changed: no notice
    }
    EXPECT_EQ(notices, 1);
    tv.Add("", "node1", "Ballistic Weapons");
    EXPECT_EQ(notices, 2);
}
