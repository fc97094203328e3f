#include "platform/files/file_error.h"

#include <algorithm>
#include <cerrno>
#include <iterator>

namespace Morvane {

namespace {

struct ErrorText {
  ErrorNumber number;
  const char* text;
};

constexpr ErrorText kTexts[] = {
    {ErrorNumber::OutOfMemory, "Memoria insufficiente"},
    {ErrorNumber::BadFileName, "Nome di file non valido"},
    {ErrorNumber::FileNotFound, "File non trovato"},
    {ErrorNumber::FileAlreadyExists, "Il file esiste già"},
    {ErrorNumber::DiskFull, "Disco pieno"},
    {ErrorNumber::TooManyFiles, "Troppi file aperti"},
    {ErrorNumber::PermissionDenied, "Autorizzazione negata"},
    {ErrorNumber::DiskNotReady, "Disco non pronto"},
    {ErrorNumber::PathNotFound, "Percorso non trovato"},
};
constexpr const char* kAccessText = "Errore di accesso al percorso o al file";

struct SystemError {
  int code;
  ErrorNumber number;
};

constexpr SystemError kSystemErrors[] = {
    {ENOENT, ErrorNumber::FileNotFound},      {ENOTDIR, ErrorNumber::PathNotFound},
    {EACCES, ErrorNumber::PermissionDenied},  {EPERM, ErrorNumber::PermissionDenied},
    {EBUSY, ErrorNumber::PermissionDenied},   {ETXTBSY, ErrorNumber::PermissionDenied},
    {EEXIST, ErrorNumber::FileAlreadyExists}, {ENOTEMPTY, ErrorNumber::FileAlreadyExists},
    {ENOSPC, ErrorNumber::DiskFull},          {EDQUOT, ErrorNumber::DiskFull},
    {EFBIG, ErrorNumber::DiskFull},           {ENAMETOOLONG, ErrorNumber::BadFileName},
    {EINVAL, ErrorNumber::BadFileName},       {EILSEQ, ErrorNumber::BadFileName},
    {EIO, ErrorNumber::DiskNotReady},         {ENOMEDIUM, ErrorNumber::DiskNotReady},
    {ENXIO, ErrorNumber::DiskNotReady},       {ESTALE, ErrorNumber::DiskNotReady},
    {ENOMEM, ErrorNumber::OutOfMemory},       {EMFILE, ErrorNumber::TooManyFiles},
    {ENFILE, ErrorNumber::TooManyFiles},
};

}  // namespace

RuntimeError FileError(ErrorNumber number, const std::string& path) {
  const auto* found = std::find_if(std::begin(kTexts), std::end(kTexts),
                                   [number](const ErrorText& entry) { return entry.number == number; });
  const std::string text = found != std::end(kTexts) ? found->text : kAccessText;
  return {number, text + ": " + path};
}

RuntimeError SystemFileError(int systemError, const std::string& path) {
  const auto* found =
      std::find_if(std::begin(kSystemErrors), std::end(kSystemErrors),
                   [systemError](const SystemError& entry) { return entry.code == systemError; });
  return FileError(found != std::end(kSystemErrors) ? found->number : ErrorNumber::PathFileAccess, path);
}

}  // namespace Morvane
