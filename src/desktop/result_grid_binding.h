#pragma once

class QTableWidget;

namespace tav {

class ResultGrid;

/// Ties a table that is only read to a widget: cells can be selected and copied as text with tabs between them.
void BindResultGrid(ResultGrid& grid, QTableWidget& table);

}  // namespace tav
