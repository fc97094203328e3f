#pragma once

namespace Morvane {

// The toolkit has a module for each format of pictures, which it finds in folders. Ours, the writer of JPEG,
// makes sheets sooner and encodes no picture twice.
enum class OtherFormats {
  Found,
  // Not before FindOtherFormats: with its first picture on a sheet the toolkit loads all modules that it
  // finds, which takes longer than a sheet without pictures. Modules of other kinds are not found either.
  WhenWanted
};

// Lets the toolkit find the writer of JPEG. Called once, when the application is there and no picture was
// read yet. Where the writer is not installed, all is as it was.
void InstallJpegWriter(OtherFormats others);
// Called before the toolkit decodes a picture; several threads may do so at once.
void FindOtherFormats();

}  // namespace Morvane
