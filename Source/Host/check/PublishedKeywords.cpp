#include "Host/check/Vocabulary.h"

namespace TicketHost {
namespace {

constexpr std::string_view features[] = {
    "DocumentBannerSheet",
    "DocumentBinding",
    "DocumentCollate",
    "DocumentCoverBack",
    "DocumentCoverFront",
    "DocumentDuplex",
    "DocumentHolePunch",
    "DocumentInputBin",
    "DocumentNUp",
    "DocumentOutputBin",
    "DocumentRollCut",
    "DocumentSeparatorSheet",
    "DocumentStaple",
    "JobAccountingSheet",
    "JobBindAllDocuments",
    "JobCollateAllDocuments",
    "JobDeviceLanguage",
    "JobDigitalSignatureProcessing",
    "JobDuplexAllDocumentsContiguously",
    "JobErrorSheet",
    "JobHolePunch",
    "JobInputBin",
    "JobNUpAllDocumentsContiguously",
    "JobOptimalDestinationColorProfile",
    "JobOutputBin",
    "JobOutputOptimization",
    "JobPageOrder",
    "JobPrimaryBannerSheet",
    "JobPrimaryCoverBack",
    "JobPrimaryCoverFront",
    "JobRollCutAtEndOfJob",
    "JobStapleAllDocuments",
    "PageBlackGenerationProcessing",
    "PageBlending",
    "PageBorderless",
    "PageColorManagement",
    "PageDestinationColorProfile",
    "PageDeviceColorSpaceProfileURI",
    "PageDeviceColorSpaceUsage",
    "PageDeviceFontSubstitution",
    "PageForceFrontSide",
    "PageICMRenderingIntent",
    "PageImageableSize",
    "PageInputBin",
    "PageMediaColor",
    "PageMediaSize",
    "PageMediaType",
    "PageMirrorImage",
    "PageNegativeImage",
    "PageOrientation",
    "PageOutputBin",
    "PageOutputColor",
    "PageOutputQuality",
    "PagePhotoPrintingIntent",
    "PagePoster",
    "PageResolution",
    "PageScaling",
    "PageSourceColorProfile",
    "PageTrueTypeFontMode",
    "PageWatermark",
};

constexpr std::string_view parameters[] = {
    "DocumentCopiesAllPages",
    "DocumentID",
    "DocumentName",
    "DocumentURI",
    "JobComment",
    "JobID",
    "JobName",
    "JobURI",
    "PageCopies",
    "JobCopiesAllDocuments",
    "PageDevmodeSnapshot",
};

// Names of later editions, none of which the device reads.
constexpr std::string_view laterNamespaces[] = {
    "http://schemas.microsoft.com/windows/2013/05/printing/printschemakeywordsv11",
    "http://schemas.microsoft.com/windows/2013/12/printing/printschemakeywordsv12",
};

}  // namespace

std::span<const std::string_view> PublishedFeatures() { return features; }
std::span<const std::string_view> PublishedParameters() { return parameters; }
std::span<const std::string_view> LaterKeywordsNamespaces() { return laterNamespaces; }

}  // namespace TicketHost
