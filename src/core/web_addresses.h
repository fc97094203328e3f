#pragma once

// Every address that the program opens or prints, in one table. The maker's own lie under MORVANE_HOST, which
// is set when building.
#ifndef MORVANE_HOST
#error "MORVANE_HOST is not set"
#endif

namespace Morvane::WebAddresses {

inline constexpr const char* kMakerSite = "http://www." MORVANE_HOST;
inline constexpr const char* kUpdateFile = "http://www." MORVANE_HOST "/morvane/morvane_update.txt";
inline constexpr const char* kDownloadPage = "http://www." MORVANE_HOST "/morvane/";
inline constexpr const char* kMakerMail = "mailto:autore@" MORVANE_HOST;
inline constexpr const char* kDonation = "https://www.paypal.com/it/xclick/business=autore%40" MORVANE_HOST
                                         "&item_name=Morvane&no_note=1&tax=0&currency_code=EUR";

inline constexpr const char* kCoverSearchRoot = "http://www.cdcovers.cc/";
inline constexpr const char* kCdcovers = "http://www.cdcovers.cc/covers/";
inline constexpr const char* kMegaSearch = "http://www.mega-search.net/";
inline constexpr const char* kGoogle = "https://www.google.it/search?q=copertine+cd";
inline constexpr const char* kYahoo =
    "https://it.search.yahoo.com/search?p=copertine+cd&fr=yfp-t-501&ei=UTF-8&rd=r1";
inline constexpr const char* kArianna =
    "http://arianna.libero.it/search/abin/integrata.cgi?query=copertine+cd&regione=8";
inline constexpr const char* kVirgilio =
    "http://search.virgilio.it/search/cgi/search.cgi?db=v&ly=vs&vrs=0&qs=%22copertine+cd%22&op";
inline constexpr const char* kAltavista = "http://it.altavista.com/q?pg=q&q=copertine+cd&kl=XX&what=it";
inline constexpr const char* kPdfCreator = "https://sourceforge.net/projects/pdfcreator/";

}  // namespace Morvane::WebAddresses
