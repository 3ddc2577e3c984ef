// A small general picker: a list with a type-ahead search box.
#pragma once

#include <cstdint>
#include <string>

#include "core/Controls.h"
#include "core/Forms.h"

namespace bw {

class frmSel : public FormModel {
public:
    frmSel();

    ListBox LBoxSel{"LBoxSel"};
    TextBox TSearch{"TSearch"};
    CommandButton PButDone{"PButDone"};
    CommandButton PButCancel{"PButCancel"};

    // The result: the picked line's text and item data; wCancel true when
    // nothing was picked.
    int16_t wCancel = -1;
    std::string wSelText;
    int32_t wSelData = 0;

    void zPickSel();

private:
    void TSearch_Change();
};

}  // namespace bw
