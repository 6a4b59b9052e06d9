#include <gtest/gtest.h>

#include "pdf/existing/XmpClaims.h"

namespace {

using pdf::XmpClaims;

std::string Packet(const std::string& inside) {
    return "<?xpacket begin=\"\uFEFF\"?><!-- <a:part>9</a:part> --><x "
           "xmlns:a=\"http://www.aiim.org/pdfa/ns/id/\" "
           "xmlns:u=\"http://www.aiim.org/pdfua/ns/id/\" xmlns:p=\"http://ns.adobe.com/pdfx/1.3/\" "
           "xmlns:x4=\"http://www.npes.org/pdfx/ns/id/\">\n" +
           inside + "<![CDATA[<a:part>9</a:part>]]>\n</x><?xpacket end=\"w\"?>";
}

std::string TextOf(const std::optional<XmpClaims>& claims) {
    if (!claims) return "unreadable";
    return claims->archive + claims->archiveLevel + '/' + claims->access +
           (claims->others ? "/others" : "");
}

// How packets tell claims, and what stays of them when some are no longer true.
TEST(XmpClaims, AreReadAndTakenOutHoweverTheyAreTold) {
    const std::string elements =
        "<a:part>2</a:part> <a:conformance>A</a:conformance>\n<u:part>1</u:part>;";
    const std::string attributes = "<D u:part = '1'  about='>' a:conformance=\"A\"\n\ta:part='2'/>";
    const std::string others =
        "<part>1</part><D part=\"1\" b:part=\"1\"/>"
        "<u:E xmlns:u=\"other:\"><u:part>1</u:part></u:E>";
    const struct {
        std::string told, claims;
        XmpClaims kept;
        std::string rest;
    } cases[] = {
        {elements, "2A/1", {}, " \n;"},
        {elements,
         "2A/1",
         {"2", "B", ""},
         "<a:part>2</a:part> <a:conformance>B</a:conformance>\n;"},
        {attributes,
         "2A/1",
         {"2", "U", "1"},
         "<D u:part=\"1\" about=\">\" a:conformance=\"U\" a:part=\"2\"/>"},
        {attributes, "2A/1", {}, "<D about=\">\"/>"},
        {"<a:part >\n 3 </a:part ><a:rev>2020</a:rev><a:amd/>", "3/", {}, ""},
        // Names of others: without a name space, in another one, in one that is bound inside.
        {others, "/", {}, others},
        {"<part xmlns='http://www.aiim.org/pdfa/ns/id/'>1</part><part>1</part>",
         "1/",
         {},
         "<part>1</part>"},
        {"<x4:GTS_PDFXVersion>4</x4:GTS_PDFXVersion><p:GTS_PDFXVersion>3</p:GTS_PDFXVersion>"
         "<D p:GTS_PDFXConformance='3' p:Company='C'/><p:Scale>1</p:Scale>",
         "//others",
         {},
         "<D p:Company=\"C\"/><p:Scale>1</p:Scale>"},
        {"<a:part>1</a:part><D a:part='2'/>", "12/", {}, "<D/>"}};
    for (const auto& [told, claims, kept, rest] : cases) {
        EXPECT_EQ(TextOf(pdf::ClaimsOf(Packet(told))), claims) << told;
        EXPECT_EQ(pdf::WithClaims(Packet(told), kept), Packet(rest)) << told;
    }
    EXPECT_EQ(TextOf(pdf::ClaimsOf(Packet(elements).substr(0, 250))), "unreadable");
}

}  // namespace
