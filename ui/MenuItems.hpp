#pragma once

#include <QLatin1String>

namespace tovarin {

// The names of the menu bar's menus and items, written only here: MenuBar1
// builds the bar under these names and the windows answer items by them.
namespace MenuItem {
inline constexpr QLatin1String FileMenu("FileMenu");
inline constexpr QLatin1String FileQuit("FileQuit");
inline constexpr QLatin1String AboutItem("AboutItem");
inline constexpr QLatin1String EditMenu("EditMenu");
inline constexpr QLatin1String EditUndo("EditUndo");
inline constexpr QLatin1String UntitledMenu1("UntitledMenu1");
inline constexpr QLatin1String EditCut("EditCut");
inline constexpr QLatin1String EditCopy("EditCopy");
inline constexpr QLatin1String EditPaste("EditPaste");
inline constexpr QLatin1String EditClear("EditClear");
inline constexpr QLatin1String UntitledMenu0("UntitledMenu0");
inline constexpr QLatin1String EditSelectAll("EditSelectAll");
inline constexpr QLatin1String InfoMenu("InfoMenu");
inline constexpr QLatin1String ControlItem("ControlItem");
inline constexpr QLatin1String InfoItem("InfoItem");
} // namespace MenuItem

} // namespace tovarin
