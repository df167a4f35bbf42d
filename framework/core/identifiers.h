#pragma once

// Interface identifiers, compared byte for byte with strcmp. Plug-ins built elsewhere ask by
// these exact texts, so odd spellings ("IAssitant") stay as they are.
//
// Each text is written once, as a macro, because moc must see a string literal when it reads
// Q_DECLARE_INTERFACE; code uses the constants in Velmora::Framework::Iid.

#define VELMORA_IID_IBASE                   "IBase.Velmora.Orvane"
#define VELMORA_IID_IASSISTANT              "IAssitant.Facilities.Velmora.Orvane"
#define VELMORA_IID_IRIBDOCK                "IRibdock.Facilities.Velmora.Orvane"
#define VELMORA_IID_IRIBBONBAR              "IRibbonBar.Facilities.Velmora.Orvane"
#define VELMORA_IID_IAPPBOX                 "IAppBox.Facilities.Velmora.Orvane"
#define VELMORA_IID_IADDRESSBAR             "IAddressBar.Facilities.Velmora.Orvane"
#define VELMORA_IID_IDOCKCONTAINER          "IDockContainer.Facilities.Velmora.Orvane"
#define VELMORA_IID_ISTATUSBAR              "IStatusBar.Facilities.Velmora.Orvane"
#define VELMORA_IID_IPROJECT                "IProject.Facilities.Velmora.Orvane"
#define VELMORA_IID_IMULTIPLEWINDOW         "IMultipleWindow.Facilities.Velmora.Orvane"
#define VELMORA_IID_ISHAREDVARIANTREGION    "ISharedVariantRegion.Velmora.Orvane"
#define VELMORA_IID_IOUTPUTWINDOW           "IOutputWindow.Facilities.Velmora.Orvane"
#define VELMORA_IID_IQUICKSTART             "IQuickStart.Facilities.Velmora.Orvane"
#define VELMORA_IID_IOPTIONSWINDOW          "IOptionsWindow.Facilities.Velmora.Orvane"
#define VELMORA_IID_ISOLUTION               "ISolution.Facilities.Velmora.Orvane"
#define VELMORA_IID_IDATAREGISTRAR          "IDataRegistrar.Facilities.Velmora.Orvane"
#define VELMORA_IID_IAGGREGATABLEREGISTRAR  "IAggregatableRegistrar.Facilities.Velmora.Orvane"
#define VELMORA_IID_ITYPEREGISTRAR          "ITypeRegistrar.Facilities.Velmora.Orvane"
#define VELMORA_IID_ISERVICEREGISTRAR       "IServiceRegistrar.Facilities.Velmora.Orvane"
#define VELMORA_IID_IAUGMENTABLEREGISTRAR   "IAugmentableRegistrar.Facilities.Velmora.Orvane"
#define VELMORA_IID_ILAUNCHABLEREGISTRAR    "ILaunchableRegistrar.Facilities.Velmora.Orvane"
#define VELMORA_IID_IEDITORFACTORY          "IEditorFactory.Facilities.Velmora.Orvane"
#define VELMORA_IID_IEDITOR                 "IEditor.Framework.Velmora.Orvane"
#define VELMORA_IID_ICONTENTOUTLINE         "IContentOutline.Facilities.Velmora.Orvane"
#define VELMORA_IID_IUNDOSOURCE             "IUndoSource.Facilities.Velmora.Orvane"
#define VELMORA_IID_IAGGREGATABLE           "IAggregatable.Types.Velmora.Orvane"
#define VELMORA_IID_ITYPEGENERIC            "ITypeGeneric.Types.Velmora.Orvane"
#define VELMORA_IID_ITYPESERIALIZABLE       "ITypeSerializable.Types.Velmora.Orvane"
#define VELMORA_IID_ITYPEFILE               "ITypeFile.Types.Velmora.Orvane"
#define VELMORA_IID_ITYPEFOLDER             "ITypeFolder.Types.Velmora.Orvane"
#define VELMORA_IID_ITYPEPROJECT            "ITypeProject.Types.Velmora.Orvane"
#define VELMORA_IID_ITYPESOLUTION           "ITypeSolution.Types.Velmora.Orvane"
#define VELMORA_IID_ILAUNCHABLE             "ILaunchable.Types.Velmora.Orvane"
#define VELMORA_IID_IAUGMENTABLEFILE        "IAugmentableFile.Augments.Velmora.Orvane"
#define VELMORA_IID_IAUGMENTABLEGENERIC     "IAugmentableGeneric.Augments.Velmora.Orvane"
#define VELMORA_IID_IAVAILABLE              "IAvailable.View.Velmora.Orvane"
#define VELMORA_IID_IPROVIDERFACTORY        "IProviderFactory.Velmora.Orvane"
#define VELMORA_IID_ITIDEKITPROVIDERSERVICE "v1.ITidekitProviderService.Types.Velmora.Orvane"

namespace Velmora::Framework::Iid {

inline constexpr char IBase[] = VELMORA_IID_IBASE;
inline constexpr char IAssistant[] = VELMORA_IID_IASSISTANT;
inline constexpr char IRibdock[] = VELMORA_IID_IRIBDOCK;
inline constexpr char IRibbonBar[] = VELMORA_IID_IRIBBONBAR;
inline constexpr char IAppBox[] = VELMORA_IID_IAPPBOX;
inline constexpr char IAddressBar[] = VELMORA_IID_IADDRESSBAR;
inline constexpr char IDockContainer[] = VELMORA_IID_IDOCKCONTAINER;
inline constexpr char IStatusBar[] = VELMORA_IID_ISTATUSBAR;
inline constexpr char IProject[] = VELMORA_IID_IPROJECT;
inline constexpr char IMultipleWindow[] = VELMORA_IID_IMULTIPLEWINDOW;
inline constexpr char ISharedVariantRegion[] = VELMORA_IID_ISHAREDVARIANTREGION;
inline constexpr char IOutputWindow[] = VELMORA_IID_IOUTPUTWINDOW;
inline constexpr char IQuickStart[] = VELMORA_IID_IQUICKSTART;
inline constexpr char IOptionsWindow[] = VELMORA_IID_IOPTIONSWINDOW;
inline constexpr char ISolution[] = VELMORA_IID_ISOLUTION;
inline constexpr char IDataRegistrar[] = VELMORA_IID_IDATAREGISTRAR;
inline constexpr char IAggregatableRegistrar[] = VELMORA_IID_IAGGREGATABLEREGISTRAR;
inline constexpr char ITypeRegistrar[] = VELMORA_IID_ITYPEREGISTRAR;
inline constexpr char IServiceRegistrar[] = VELMORA_IID_ISERVICEREGISTRAR;
inline constexpr char IAugmentableRegistrar[] = VELMORA_IID_IAUGMENTABLEREGISTRAR;
inline constexpr char ILaunchableRegistrar[] = VELMORA_IID_ILAUNCHABLEREGISTRAR;
inline constexpr char IEditorFactory[] = VELMORA_IID_IEDITORFACTORY;
inline constexpr char IEditor[] = VELMORA_IID_IEDITOR;
inline constexpr char IContentOutline[] = VELMORA_IID_ICONTENTOUTLINE;
inline constexpr char IUndoSource[] = VELMORA_IID_IUNDOSOURCE;
inline constexpr char IAggregatable[] = VELMORA_IID_IAGGREGATABLE;
inline constexpr char ITypeGeneric[] = VELMORA_IID_ITYPEGENERIC;
inline constexpr char ITypeSerializable[] = VELMORA_IID_ITYPESERIALIZABLE;
inline constexpr char ITypeFile[] = VELMORA_IID_ITYPEFILE;
inline constexpr char ITypeFolder[] = VELMORA_IID_ITYPEFOLDER;
inline constexpr char ITypeProject[] = VELMORA_IID_ITYPEPROJECT;
inline constexpr char ITypeSolution[] = VELMORA_IID_ITYPESOLUTION;
inline constexpr char ILaunchable[] = VELMORA_IID_ILAUNCHABLE;
inline constexpr char IAugmentableFile[] = VELMORA_IID_IAUGMENTABLEFILE;
inline constexpr char IAugmentableGeneric[] = VELMORA_IID_IAUGMENTABLEGENERIC;
inline constexpr char IAvailable[] = VELMORA_IID_IAVAILABLE;
inline constexpr char IProviderFactory[] = VELMORA_IID_IPROVIDERFACTORY;
inline constexpr char ITidekitProviderService[] = VELMORA_IID_ITIDEKITPROVIDERSERVICE;

} // namespace Velmora::Framework::Iid
