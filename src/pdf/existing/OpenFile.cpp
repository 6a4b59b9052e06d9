#include "pdf/existing/OpenFile.h"

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFExc.hh>

#include "pdf/file/Output.h"

namespace pdf {

std::unique_ptr<QPDF> OpenFile(const std::string& path) {
    auto file = std::make_unique<QPDF>();
    file->setSuppressWarnings(true);
    const std::string refused = "The file \"" + path + "\" cannot be read as PDF: ";
    try {
        file->processFile(path.c_str());
        if (file->getAllPages().empty()) throw Error(refused + "it has no pages.");
        return file;
    } catch (const QPDFExc& error) {
        if (error.getErrorCode() == qpdf_e_password)
            throw Error(refused + "it is protected by a password.");
        throw Error(refused + error.getMessageDetail() + '.');
    } catch (const Error&) {
        throw;
    } catch (const std::runtime_error& error) {
        throw Error(refused + error.what() + '.');
    }
}

}  // namespace pdf
