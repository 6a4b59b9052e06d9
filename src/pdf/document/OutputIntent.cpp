#include "pdf/document/OutputIntent.h"

#include "pdf/color/ScreenProfile.h"
#include "pdf/file/Syntax.h"

namespace pdf {
namespace {

/// The standard is told by its name in output intents, the colours by the name of the profile.
int WriteIntent(ObjectFile& file, const char* standard, const std::string& name, int profile) {
    return file.WriteObject(std::string("<</Type/OutputIntent/S/") + standard +
                            "/OutputConditionIdentifier" + TextString(name) + "/Info" +
                            TextString(name) + "/DestOutputProfile " + Reference(profile) + ">>");
}

}  // namespace

int WriteScreenIntent(ObjectFile& file) {
    return WriteIntent(file, "GTS_PDFA1", "sRGB IEC61966-2.1",
                       file.WriteStream("/N 3", ScreenProfile()));
}

int WritePressIntent(ObjectFile& file, const PressProfile& press) {
    return WriteIntent(file, "GTS_PDFX", press.Name(), file.WriteStream("/N 4", press.Bytes()));
}

}  // namespace pdf
