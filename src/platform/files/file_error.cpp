#include "platform/files/file_error.h"

#include <cerrno>
#include <map>

namespace Morvane {

namespace {

const std::map<ErrorNumber, const char*> kTexts = {
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

const std::map<int, ErrorNumber> kSystemErrors = {
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
  const auto found = kTexts.find(number);
  const std::string text = found != kTexts.end() ? found->second : kAccessText;
  return {number, text + ": " + path};
}

RuntimeError SystemFileError(int systemError, const std::string& path) {
  const auto found = kSystemErrors.find(systemError);
  return FileError(found != kSystemErrors.end() ? found->second : ErrorNumber::PathFileAccess, path);
}

}  // namespace Morvane
