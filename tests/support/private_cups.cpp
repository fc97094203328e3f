#include "tests/support/private_cups.h"

#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <thread>

namespace Morvane {
namespace {

constexpr auto kPatience = std::chrono::seconds(20);

constexpr const char* kPrinterDescription = R"PPD(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "UNEVEN.PPD"
*Manufacturer: "Test"
*Product: "(Uneven)"
*ModelName: "Uneven"
*ShortNickName: "Uneven"
*NickName: "Uneven"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: True
*DefaultColorSpace: RGB
*FileSystem: False
*LandscapeOrientation: Minus90
*cupsFilter2: "application/vnd.cups-pdf application/pdf 0 -"
*OpenUI *PageSize/Media Size: PickOne
*OrderDependency: 10 AnySetup *PageSize
*DefaultPageSize: A4
*PageSize A4/A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion/Media Size: PickOne
*OrderDependency: 10 AnySetup *PageRegion
*DefaultPageRegion: A4
*PageRegion A4/A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4/A4: "9.64 14.4 580.8 823.92"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595.28 841.89"
*DefaultFont: Courier
)PPD";

// As the spooler itself describes a driverless printer that takes rasters only. Its default sheet is Letter.
constexpr const char* kRasterDescription = R"PPD(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "2.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "RASTER.PPD"
*Manufacturer: "Test"
*Product: "(Raster)"
*ModelName: "Raster"
*NickName: "Raster - IPP Everywhere"
*ShortNickName: "Raster - IPP Everywhere"
*LanguageLevel: "3"
*ColorDevice: False
*FileSystem: False
*cupsVersion: 2.4
*cupsLanguages: "en"
*cupsFilter2: "image/pwg-raster image/pwg-raster 0 -"
*OpenUI *PageSize/Media Size: PickOne
*OrderDependency: 10 AnySetup *PageSize
*DefaultPageSize: Letter
*PageSize Letter/Letter: "<</PageSize[612 792]>>setpagedevice"
*PageSize A4/A4: "<</PageSize[595.275590551181 841.889763779528]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion/Media Size: PickOne
*OrderDependency: 10 AnySetup *PageRegion
*DefaultPageRegion: Letter
*PageRegion Letter/Letter: "<</PageSize[612 792]>>setpagedevice"
*PageRegion A4/A4: "<</PageSize[595.275590551181 841.889763779528]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: Letter
*ImageableArea Letter/Letter: "9.64 14.4 597.52 774.03"
*ImageableArea A4/A4: "9.64 14.4 580.8 823.92"
*DefaultPaperDimension: Letter
*PaperDimension Letter/Letter: "612 792"
*PaperDimension A4/A4: "595.275590551181 841.889763779528"
*OpenUI *ColorModel/Output Mode: PickOne
*OrderDependency: 10 AnySetup *ColorModel
*DefaultColorModel: Gray
*ColorModel Gray/Grayscale: "<</cupsColorSpace 18/cupsBitsPerColor 8/cupsColorOrder 0/cupsCompression 0>>setpagedevice"
*CloseUI: *ColorModel
*OpenUI *Resolution/Resolution: PickOne
*OrderDependency: 10 AnySetup *Resolution
*DefaultResolution: 600dpi
*Resolution 600dpi/600 DPI: "<</HWResolution[600 600]>>setpagedevice"
*CloseUI: *Resolution
)PPD";

template <typename Condition>
void WaitUntil(Condition&& condition, const char* what) {
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) throw std::runtime_error(std::string("in vain: ") + what);
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
}

int CommandResult(const std::string& command) {
  return std::system((command + " >/dev/null 2>&1").c_str());
}

}  // namespace

void PrivateCups::ChooseSocket(const std::string& folder) {
  setenv("CUPS_SERVER", (folder + "/cups.sock").c_str(), 1);
}

PrivateCups::PrivateCups() {
  WriteSettings();
  const std::string conf = folder_.Path() + "/cupsd.conf";
  const std::string files = folder_.Path() + "/cups-files.conf";
  process_ = fork();
  if (process_ == 0) {
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    setenv("PATH", "/usr/sbin:/sbin:/usr/bin:/bin", 1);
    execlp("cupsd", "cupsd", "-f", "-c", conf.c_str(), "-s", files.c_str(), nullptr);
    _exit(127);
  }
  WaitUntil([] { return CommandResult("/usr/bin/lpstat -r | grep -q 'is running'") == 0; },
            "the spooler's start");
}

PrivateCups::~PrivateCups() {
  Stop();
}

void PrivateCups::Stop() {
  if (process_ <= 0) return;
  kill(process_, SIGTERM);
  waitpid(process_, nullptr, 0);
  process_ = -1;
}

void PrivateCups::WriteSettings() const {
  namespace fs = std::filesystem;
  const std::string root = folder_.Path();
  for (const char* name : {"spool/tmp", "cache", "run", "log", "ppd", "ssl", "out"}) {
    fs::create_directories(root + '/' + name);
  }
  fs::permissions(root, fs::perms(0755));
  fs::permissions(root + "/out", fs::perms::all);
  std::ofstream(root + "/cupsd.conf") << "Listen " << std::getenv("CUPS_SERVER") << R"(
Browsing Off
DefaultAuthType None
WebInterface No
PreserveJobFiles Yes
PreserveJobHistory Yes
<Location />
 Order allow,deny
 Allow all
</Location>
<Location /admin>
 Order allow,deny
 Allow all
</Location>
<Policy default>
 <Limit All>
  Order deny,allow
 </Limit>
</Policy>
)";
  std::ofstream files(root + "/cups-files.conf");
  files << "ServerRoot " << root << "\nRequestRoot " << root << "/spool\nTempDir " << root
        << "/spool/tmp\nCacheDir " << root << "/cache\nStateDir " << root << "/run\nServerKeychain " << root
        << "/ssl\nErrorLog " << root << "/log/error_log\nAccessLog " << root << "/log/access_log\nPageLog "
        << root << "/log/page_log\nFileDevice Yes\n";
  if (geteuid() == 0) files << "User lp\nGroup lp\nSystemGroup root\n";
}

void PrivateCups::AddQueue(const std::string& name) {
  Add(name, SheetPath(), kPrinterDescription);
}

void PrivateCups::AddRasterQueue(const std::string& name) {
  Add(name, RasterPath(), kRasterDescription);
}

void PrivateCups::Add(const std::string& name, const std::string& output, const char* description) const {
  const std::string ppd = folder_.Path() + "/" + name + ".ppd";
  std::ofstream(ppd) << description;
  Run("lpadmin -p " + name + " -E -v file:" + output + " -P " + ppd);
}

void PrivateCups::Run(const std::string& command) const {
  if (CommandResult("PATH=/usr/sbin:/usr/bin:/bin " + command) != 0)
    throw std::runtime_error("failed: " + command);
}

void PrivateCups::WaitForJobs() const {
  WaitUntil([] { return CommandResult("/usr/bin/lpstat -o | grep -q .") != 0; }, "the end of the jobs");
}

std::vector<std::string> PrivateCups::JobRecords() const {
  std::vector<std::string> records;
  for (const auto& entry : std::filesystem::directory_iterator(folder_.Path() + "/spool")) {
    if (!entry.is_regular_file() || entry.path().filename().string().front() != 'c') continue;
    std::ifstream file(entry.path(), std::ios::binary);
    records.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  return records;
}

}  // namespace Morvane
