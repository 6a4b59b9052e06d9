#include "pdf/existing/OpenFile.h"

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFExc.hh>

#include "pdf/file/Output.h"

namespace pdf {

Error UnreadableFile(const std::string& path, const std::string& reason) {
    return Error("The file \"" + path + "\" cannot be read as PDF: " + reason + '.');
}

std::unique_ptr<QPDF> OpenFile(const std::string& path) {
    auto file = std::make_unique<QPDF>();
    file->setSuppressWarnings(true);
    try {
        file->processFile(path.c_str());
        if (file->getAllPages().empty()) throw UnreadableFile(path, "it has no pages");
        return file;
    } catch (const QPDFExc& error) {
        if (error.getErrorCode() == qpdf_e_password)
            throw UnreadableFile(path, "it is protected by a password");
        throw UnreadableFile(path, error.getMessageDetail());
    } catch (const Error&) {
        throw;
    } catch (const std::runtime_error& error) {
        throw UnreadableFile(path, error.what());
    }
}

}  // namespace pdf
