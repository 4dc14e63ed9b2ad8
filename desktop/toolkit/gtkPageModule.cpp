#include "desktop/toolkit/gtkPageLibrary.h"
#include "desktop/toolkit/offlineFilter.h"
#include "desktop/toolkit/pageSearch.h"

// The one name of the library that others see.
extern "C" __attribute__((visibility("default"))) const lorelin::PageLibrary* LorelinPageLibrary() {
  static const lorelin::PageLibrary library{.newPageView = &lorelin::NewPageView,
                                            .letPageTakeFocus = &lorelin::LetPageTakeFocus,
                                            .tellThatPageIsUsable = &lorelin::TellThatPageIsUsable,
                                            .focusPage = &lorelin::FocusPage,
                                            .letPageSend = &lorelin::LetPageSend,
                                            .blockNetwork = &lorelin::BlockNetwork,
                                            .findInPage = &lorelin::FindInPage};
  return &library;
}
