#pragma once

#include "tables/ascent_cards.h"
#include "tables/table_pages.h"

namespace tav {

/// The cards of one scenario, ready to be printed.
struct CardSet {
  std::string title;  ///< "EAN50 lost"
  std::vector<AscentCard> cards;
  TableInfo info;
  /// Of the page, for cards as tall as it is, which tell the supply of each gas; empty for cards to cut out.
  std::string pageHead = {};
  int abreast = 3;  ///< of those, 3 or 4
};

/// Prints a card of a set, six to a page, or three or four that are as tall as the page. An ascent that is longer than
/// a card goes on in the next one.
void PrintCard(PrintPreview& writer, TablePages& pages, const CardSet& set, const AscentCard& card);

}  // namespace tav
