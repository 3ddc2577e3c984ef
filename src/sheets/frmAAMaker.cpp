#include "sheets/frmAAMaker.h"

#include <cmath>

#include "core/Ui.h"

namespace bw {

namespace {

constexpr const char* kTitle = "Armor Array Creator";

// A whole number, spaces around it allowed; false for anything else.
bool ReadWhole(const std::string& text, int32_t lower, int32_t upper, int32_t& value) {
    const size_t a = text.find_first_not_of(' ');
    if (a == std::string::npos) return false;
    const size_t b = text.find_last_not_of(' ');
    size_t i = a;
    bool negative = false;
    if (text[i] == '-' || text[i] == '+') negative = text[i++] == '-';
    if (i > b) return false;
    int64_t v = 0;
    for (; i <= b; ++i) {
        if (text[i] < '0' || text[i] > '9') return false;
        v = v * 10 + (text[i] - '0');
        if (v > upper + int64_t{1} - lower) return false;  // far out of range already
    }
    if (negative) v = -v;
    if (v < lower || v > upper) return false;
    value = static_cast<int32_t>(v);
    return true;
}

// The places along one axis: the patch's own, or the ones halfway between.
std::vector<int32_t> Axis(int32_t start, int32_t offset, int32_t len, bool mid) {
    std::vector<int32_t> out;
    if (!mid || len == 1) {
        for (int32_t k = 0; k < len; ++k) out.push_back(start + k * offset);
    } else {
        for (int32_t k = 0; k + 1 < len; ++k)
            out.push_back(static_cast<int32_t>(std::floor((2.0 * start + (2 * k + 1) * offset) / 2.0)));
    }
    return out;
}

}  // namespace

frmAAMaker::frmAAMaker() : FormModel("frmAAMaker") {
    Window.SetCaption(kTitle);
    LX.SetCaption("Beginning X:");
    LY.SetCaption("Beginning Y:");
    LXOffset.SetCaption("X Offset:");
    LYOffset.SetCaption("Y Offset:");
    LXLen.SetCaption("X Length:");
    LYLen.SetCaption("Y Length:");
    // The sheets' dots sit nine pixels apart.
    TX.SetText("0");
    TY.SetText("0");
    TXOffset.SetText("9");
    TYOffset.SetText("9");
    TXLen.SetText("1");
    TYLen.SetText("1");
    TData.Locked = true;
    RButAlter[0].SetCaption("Walk X");
    RButAlter[1].SetCaption("Walk Y");
    for (OptionButton* b : walk_) b->SetGroup(&walk_);
    RButAlter[0].SetValue(true);
    PButGo.SetCaption("&Go");
    PButGo.Default = true;
    PButMakeMid.SetCaption("Make Mid");
    PButClose.SetCaption("&Close");
    PButClose.Cancel = true;
    // A field taking the focus has its text selected, to type over.
    for (TextBox* t : {&TX, &TY, &TXOffset, &TYOffset, &TXLen, &TYLen})
        t->GotFocus = [t] { t->Select(0, static_cast<int32_t>(t->Text().size())); };
    PButGo.Click = [this] { PButGo_Click(); };
    PButMakeMid.Click = [this] { PButMakeMid_Click(); };
    PButClose.Click = [this] { Unload(); };
}

std::vector<std::pair<int32_t, int32_t>> frmAAMaker::zWalk(const Patch& p, bool walkY, bool mid) {
    const std::vector<int32_t> xs = Axis(p.x, p.xOffset, p.xLen, mid);
    const std::vector<int32_t> ys = Axis(p.y, p.yOffset, p.yLen, mid);
    std::vector<std::pair<int32_t, int32_t>> out;
    if (walkY) {
        for (int32_t x : xs)
            for (int32_t y : ys) out.emplace_back(x, y);
    } else {
        for (int32_t y : ys)
            for (int32_t x : xs) out.emplace_back(x, y);
    }
    return out;
}

std::string frmAAMaker::zPairsText(const std::vector<std::pair<int32_t, int32_t>>& pairs) {
    std::string text;
    for (const auto& [x, y] : pairs) {
        if (!text.empty()) text += "\r\n";
        text += std::to_string(x) + "," + std::to_string(y);
    }
    return text;
}

bool frmAAMaker::ReadPatch(Patch& p) {
    struct Field {
        TextBox& box;
        const Label& label;
        int32_t lower, upper;
        int32_t& value;
    };
    const Field fields[] = {
        {TX, LX, 0, 9999, p.x},
        {TY, LY, 0, 9999, p.y},
        {TXOffset, LXOffset, -999, 999, p.xOffset},
        {TYOffset, LYOffset, -999, 999, p.yOffset},
        {TXLen, LXLen, 0, 100, p.xLen},
        {TYLen, LYLen, 0, 100, p.yLen},
    };
    for (const Field& f : fields) {
        if (ReadWhole(f.box.Text(), f.lower, f.upper, f.value)) continue;
        std::string name = f.label.Caption();
        if (!name.empty() && name.back() == ':') name.pop_back();
        zMsgBox(name + " must be a whole number from " + std::to_string(f.lower) + " to " + std::to_string(f.upper) +
                    ".",
                MsgButtons::OK, MsgIcon::Exclamation, kTitle);
        f.box.Select(0, static_cast<int32_t>(f.box.Text().size()));
        return false;
    }
    return true;
}

void frmAAMaker::Fill(bool mid) {
    Patch p;
    if (ReadPatch(p)) TData.SetText(zPairsText(zWalk(p, RButAlter[1].Value(), mid)));
}

void frmAAMaker::PButGo_Click() { Fill(false); }

void frmAAMaker::PButMakeMid_Click() { Fill(true); }

}  // namespace bw
