#pragma once

/// The texts of lang/TAV_*.dll by name, so that code says Text::Depth and not a number; tests see to it that each
/// name has a text, that each text is used, and that a call fills in as many values as the text has places.
/// "and the 5 that follow": the name stands for a row of texts, of which code reckons the number.
namespace tav::Text {

// Language
constexpr int LanguageName = 999;

// Menus
constexpr int MenuFile = 1000;
constexpr int MenuNew = 1001;
constexpr int MenuOpen = 1002;
constexpr int MenuClose = 1003;
constexpr int MenuLoadTemplate = 1004;
constexpr int MenuSaveTemplate = 1005;
constexpr int MenuSave = 1006;
constexpr int MenuSaveAs = 1007;
constexpr int MenuTemplate = 1008;
constexpr int MenuExit = 1011;
constexpr int MenuDive = 1020;
constexpr int MenuAlgorithm = 1021;
constexpr int MenuZHL16B = 1022;
constexpr int MenuZHL16C = 1023;
constexpr int MenuConservatism = 1024;
constexpr int MenuVPM = 1025;
constexpr int MenuHybrid = 1026;
constexpr int MenuReport = 1030;
constexpr int MenuGeneralReport = 1031;
constexpr int MenuBailout = 1032;
constexpr int MenuDecoTables = 1033;
constexpr int MenuTools = 1035;
constexpr int MixerReport = 1036;
constexpr int Language = 1038;
constexpr int MenuWindow = 1040;
constexpr int MenuCascade = 1041;
constexpr int MenuTileHorizontally = 1042;
constexpr int MenuTileVertically = 1043;
constexpr int MenuArrangeIcons = 1044;
constexpr int MenuHelp = 1050;
constexpr int MenuContents = 1051;
constexpr int MenuSearch = 1052;
constexpr int MenuAbout = 1053;
constexpr int MenuClearAscent = 1054;
constexpr int MenuClearLastWaypoint = 1055;
constexpr int MenuClearWaypoints = 1056;

// Main window
constexpr int UntitledPlan = 1060;
constexpr int NoHelpFile = 1065;
constexpr int WaitTitle = 1066;
constexpr int WaitComputing = 1067;
constexpr int ConservatismByKey = 1071;
constexpr int ToolNew = 1100;
constexpr int ToolOpen = 1101;
constexpr int ToolSave = 1102;
constexpr int ToolConservatism = 1104;
constexpr int ComputeAscent = 1105;
constexpr int DiveInformation = 1106;
constexpr int OpenCircuit = 1107;
constexpr int ConstantPPO2 = 1108;
constexpr int ToolReport = 1109;
constexpr int ToolBailout = 1110;
constexpr int ToolTemplate = 1111;
constexpr int ToolDecoTables = 1112;

// Buttons and units of dialogs
constexpr int OK = 1210;
constexpr int Cancel = 1215;
constexpr int FeetWord = 1216;
constexpr int MetresWord = 1219;
constexpr int BarWord = 1220;
constexpr int AtaWord = 1221;
constexpr int InMetres = 1222;
constexpr int InFeet = 1223;

// A blend of one's own
constexpr int BlendName = 1228;
constexpr int BlendTitle = 1229;
constexpr int BlendNameMissing = 1230;
constexpr int BlendNameHelp = 1231;
constexpr int WaypointMinutes = 1232;

// Graph
constexpr int GraphCompartments = 1308;
constexpr int GraphPlan = 1500;
constexpr int GraphRunTime = 1501;
constexpr int GraphDepth = 1502;
constexpr int GraphCeiling = 1503;

// Template properties
constexpr int TemplateTitle = 1600;
constexpr int TemplateUnits = 1602;
constexpr int TemplateDescentRates = 1603;
constexpr int TemplateAscentRates = 1604;
constexpr int TemplateDecoStep = 1605;
constexpr int TemplateGasChanges = 1606;
constexpr int TemplateGases = 1607;
constexpr int TemplateDefault = 1608;
constexpr int TemplateCancel = 1609;
constexpr int TemplateOK = 1610;
constexpr int TemplateCustomBlend = 1611;
constexpr int TemplateGasName = 1618;
constexpr int TemplateMetres = 1619;
constexpr int TemplateFeet = 1620;
constexpr int TemplateDepth = 1621;
constexpr int TemplateGasMix = 1622;
constexpr int TemplateAscentDepth = 1623;
constexpr int TemplateRate = 1624;
constexpr int TemplateAddRow = 1625;
constexpr int TemplateDeleteRow = 1626;
constexpr int TemplateCubicFeetPerMin = 1627;
constexpr int TemplateLitresPerMin = 1628;
constexpr int TemplateBar = 1629;
constexpr int TemplateAta = 1630;
constexpr int TemplateMetric = 1631;
constexpr int TemplateImperial = 1632;
constexpr int TemplateWarnings = 1633;
constexpr int TemplateWarnPPO2Low = 1634;
constexpr int TemplateWarnPPO2High = 1635;
constexpr int TemplateWarnEND = 1636;
constexpr int TemplateRMV = 1638;
constexpr int TemplateMinPPO2 = 1639;
constexpr int TemplateMaxPPO2 = 1640;
constexpr int TemplateMaxEND = 1641;
constexpr int TemplateO2Narcotic = 1642;
constexpr int TemplateStepSize = 1643;
constexpr int TemplateLastStop = 1644;
constexpr int TemplateAltitude = 1645;
constexpr int TemplateStartAltitude = 1646;
constexpr int TemplateAdapted = 1647;
constexpr int TemplateSurfacePressure = 1648;
constexpr int TemplateLoop = 1650;
constexpr int TemplateSetpoint = 1651;
constexpr int TemplateAutoDecoGas = 1652;
constexpr int TemplateDash = 1653;
constexpr int TemplateRowStays = 1654;
constexpr int TemplateDepthStays = 1655;

// Conservatism
constexpr int ConservatismTitle = 1700;
constexpr int TableDepthHead = 1702;
constexpr int ConservatismFormula = 1707;
constexpr int ConservatismFormulaOfDepth = 1708;
constexpr int ConservatismGradient = 1709;
constexpr int HighGF = 1710;
constexpr int LowGF = 1711;
constexpr int ConservatismAdjustDepth = 1713;

// Waypoint
constexpr int WaypointTitle = 1800;
constexpr int WaypointDepth = 1801;
constexpr int WaypointTime = 1802;
constexpr int WaypointGas = 1803;
constexpr int TableProfile = 1928;

// Dive information
constexpr int InfoTitle = 2100;
constexpr int InfoDepth = 2101;
constexpr int InfoTime = 2102;
constexpr int InfoRun = 2103;
constexpr int InfoUsed = 2104;
constexpr int InfoCNS = 2105;
constexpr int InfoOTU = 2106;
constexpr int InfoEND = 2107;
constexpr int InfoMValue = 2108;
constexpr int InfoGF = 2109;
constexpr int InfoRunTime = 2110;
constexpr int InfoStopTime = 2111;
constexpr int InfoTotalCNS = 2112;
constexpr int InfoTotalOTU = 2113;
constexpr int InfoMaxPPO2 = 2114;
constexpr int InfoMinPPO2 = 2115;
constexpr int InfoMaxEND = 2116;
constexpr int InfoSetpoint = 2117;
constexpr int InfoRMV = 2118;
constexpr int InfoMaxDepth = 2119;
constexpr int InfoStatus = 2120;
constexpr int InfoStop = 2121;
constexpr int InfoGas = 2122;
constexpr int InfoOfDepth = 2123;
constexpr int InfoOfGF = 2124;
constexpr int InfoOpenCircuit = 2125;
constexpr int InfoConstantPPO2 = 2126;
constexpr int InfoProfile = 2127;
constexpr int InfoGasUse = 2128;
constexpr int InfoStops = 2129;
constexpr int InfoSummary = 2130;
constexpr int InfoSettings = 2131;
constexpr int InfoModel = 2132;
constexpr int InfoAltitude = 2133;
constexpr int InfoStart = 2134;
constexpr int InfoSurface = 2135;
constexpr int InfoDecoSteps = 2136;
constexpr int InfoStopSize = 2137;
constexpr int InfoLastStop = 2138;
constexpr int InfoApparatus = 2139;
constexpr int InfoUnits = 2140;
constexpr int InfoO2Narcotic = 2141;
constexpr int InfoConservatism = 2142;
constexpr int InfoModelHead = 2143;

// Preview and print
constexpr int PreviewClose = 2210;
constexpr int PreviewPage = 2211;
constexpr int PreviewOf = 2212;
constexpr int PrintTitle = 2214;
constexpr int PrintFromPage = 2215;
constexpr int PrintToPage = 2216;
constexpr int PrintFrom = 2217;
constexpr int PrintTo = 2218;
constexpr int PrintPages = 2219;
constexpr int Print = 2220;
constexpr int PrintSetUp = 2221;
constexpr int PrintCancel = 2222;
constexpr int PrintTooWide = 2223;

// Open and save
constexpr int SaveTemplateQuestion = 2300;
constexpr int SaveTemplateTitle = 2301;
constexpr int OpenTitle = 2303;
constexpr int SaveTitle = 2305;
constexpr int PlanFilter = 2306;
constexpr int TemplateFilter = 2307;
constexpr int LoadTemplateTitle = 2308;

// Gas warnings: text, value, text, limit, text
constexpr int WarningEND = 2400;
constexpr int WarningDeeperMetres = 2401;
constexpr int WarningMetres = 2402;
constexpr int WarningDeeperFeet = 2403;
constexpr int WarningFeet = 2404;
constexpr int WarningPPO2 = 2406;
constexpr int WarningAboveBar = 2407;
constexpr int WarningBar = 2408;
constexpr int WarningAboveAta = 2409;
constexpr int WarningBelowBar = 2410;
constexpr int WarningBelowAta = 2411;
constexpr int WarningAta = 2412;

// Liability
constexpr int LiabilityTitle = 2500;
constexpr int LiabilityDisagree = 2501;
constexpr int LiabilityAgree = 2502;
constexpr int LiabilityRisk = 2503;
constexpr int LiabilityDuty = 2504;

// Bail-out and deco tables
constexpr int BailoutTitle = 2600;
constexpr int BailoutGenerate = 2601;
constexpr int BailoutSettings = 2602;
constexpr int BailoutInterval = 2603;
constexpr int Progress = 2604;
constexpr int BailoutTemplate = 2605;
constexpr int TablesTitle = 2700;
constexpr int TablesFields = 2701;  // and the 5 that follow, by field of the dialog
constexpr int TablesGasUsed = 2707;
constexpr int TablesMix = 2708;
constexpr int TablesTemplate = 2709;
constexpr int TablesProgress = 2710;
constexpr int Abort = 2711;
constexpr int TablesCancel = 2712;
constexpr int TablesStart = 2713;
constexpr int TablesDepthsSwapped = 2714;
constexpr int TablesDepthInterval = 2715;
constexpr int TablesTimesSwapped = 2716;
constexpr int TablesTimeInterval = 2717;
constexpr int TablesStartTimeNegative = 2718;
constexpr int TablesEndTimeNegative = 2719;
constexpr int TablesStartDepthNegative = 2720;
constexpr int TablesEndDepthNegative = 2721;
constexpr int BailoutBelow0 = 3000;
constexpr int BailoutAbove99 = 3001;
constexpr int BailoutFaultTitle = 3002;
constexpr int BailoutNoPlan = 3003;

// Conservatism: messages
constexpr int FactorsAbove0 = 3004;
constexpr int FactorsInOrder = 3005;
constexpr int FactorsFarApart = 3006;
constexpr int HighFactorRisk = 3007;
constexpr int LowFactorRisk = 3008;
constexpr int FactorsPressOK = 3009;
constexpr int FactorsOrCancel = 3010;

// Dive information: series, kinds of row
constexpr int InfoInterval = 3011;
constexpr int InfoFirstDive = 3012;
constexpr int DiveNumber = 3013;
constexpr int InfoDecoRMV = 3014;
constexpr int InfoDecoPPO2 = 3015;
constexpr int CaptionInterval = 3016;
constexpr int InfoKinds = 3017;  // and the 5 that follow, by kind of row
constexpr int InfoAscent = 3023;
constexpr int InfoDescent = 3024;
constexpr int Yes = 3025;
constexpr int No = 3026;

// Surface interval, mixer
constexpr int IntervalHoursFault = 3027;
constexpr int IntervalMinutesFault = 3028;
constexpr int MenuInterval = 3029;
constexpr int MixerNotPossible = 3033;

// Template properties: categories, messages
constexpr int TemplateCategories = 3034;  // and the 7 that follow, by category
constexpr int TemplateMinutes = 3042;
constexpr int Pressure = 3043;
constexpr int TemplateGasInPlan = 3044;
constexpr int TemplateOnlyGasChange = 3045;
constexpr int TemplateBadStepSize = 3046;
constexpr int TemplateBadLastStop = 3047;
constexpr int TemplateBadDecoPPO2 = 3048;
constexpr int TemplateBadRMV = 3049;
constexpr int TemplateBadMinPPO2 = 3050;
constexpr int TemplateBadMaxPPO2 = 3051;
constexpr int TemplateBadMaxEND = 3052;
constexpr int TemplateBadAltitude = 3053;
constexpr int TemplateBadTimeToAdapt = 3054;
constexpr int TemplateBadSetpoint = 3055;
constexpr int TemplateBadDecoSetpoint = 3056;

// Plan: messages
constexpr int UnsavedName = 3057;
constexpr int UnsavedQuestion = 3058;
constexpr int UnsavedTitle = 3059;
constexpr int AboveCeiling = 3061;
constexpr int WaypointDeepestMetres = 3062;
constexpr int WaypointDeepestFeet = 3063;
constexpr int Nitrox = 3064;
constexpr int Trimix = 3065;
constexpr int Heliox = 3066;
constexpr int WaypointOptimalGases = 3067;
constexpr int WaypointMakeGas = 3068;

// Template properties: captions
constexpr int TemplateRates = 3069;
constexpr int TemplateDecoSettings = 3070;
constexpr int TemplateDecoGas = 3071;
constexpr int TemplateDecoPPO2 = 3072;
constexpr int TemplateDecoRMV = 3073;
constexpr int TemplateDecoSetpoint = 3074;
constexpr int TemplateOpenForDeco = 3075;
constexpr int TemplateGasSettings = 3076;
constexpr int TemplatePPO2 = 3077;
constexpr int TemplateNarcotic = 3078;
constexpr int TemplateGasUse = 3079;
constexpr int IntervalTitle = 3080;
constexpr int IntervalHours = 3081;
constexpr int IntervalMinutes = 3082;
constexpr int TemplateCategory = 5003;
constexpr int TemplateTimeToAdapt = 5004;
constexpr int Ready = 5005;
constexpr int Calculating = 5006;
constexpr int TablesFastDescent = 5010;

// General report
constexpr int ReportPage = 6000;
constexpr int ReportPreparing = 6001;
constexpr int ReportReading = 6002;
constexpr int ReportWritingProfile = 6003;
constexpr int ReportKinds = 6004;  // and the 5 that follow, by kind of row
constexpr int ReportFreeAscent = 6010;
constexpr int ReportAscent = 6011;
constexpr int ReportDescent = 6012;
constexpr int ReportNoData = 6013;
constexpr int ReportWritingBottom = 6014;
constexpr int ReportNoStops = 6016;
constexpr int ReportComplete = 6017;
constexpr int GeneralReport = 6018;
constexpr int ReportRepetitiveDive = 6019;
constexpr int ReportDiveNumber = 6021;
constexpr int ReportInterval = 6022;
constexpr int ReportSettings = 6023;
constexpr int ReportAltitude = 6025;
constexpr int ReportStart = 6026;
constexpr int ReportMetres = 6027;
constexpr int ReportBar = 6028;
constexpr int ReportFeet = 6029;
constexpr int ReportAta = 6030;
constexpr int ReportSurface = 6031;
constexpr int ReportDecoSteps = 6032;
constexpr int ReportStep = 6033;
constexpr int ReportLastStop = 6034;
constexpr int ReportModel = 6035;
constexpr int ReportAlgorithm = 6036;
constexpr int ReportConservatism = 6037;
constexpr int ReportFactors = 6038;
constexpr int ReportAdjustDepth = 6039;
constexpr int ReportOxygen = 6040;
constexpr int ReportPPO2 = 6041;
constexpr int ReportLowest = 6042;
constexpr int ReportHighest = 6043;
constexpr int ReportEND = 6044;
constexpr int ReportO2Narcotic = 6045;
constexpr int ReportGeneral = 6046;
constexpr int ReportUnits = 6047;
constexpr int ReportApparatus = 6048;
constexpr int ReportOn = 6049;
constexpr int ReportOff = 6050;
constexpr int ReportYes = 6051;
constexpr int ReportNo = 6052;
constexpr int ReportMetric = 6053;
constexpr int ReportImperial = 6054;
constexpr int ReportOpenCircuit = 6055;
constexpr int ReportConstantPPO2 = 6056;
constexpr int ReportProfile = 6057;
constexpr int ReportSegment = 6059;
constexpr int ReportDepth = 6060;
constexpr int ReportDepthMetres = 6061;
constexpr int ReportDepthFeet = 6062;
constexpr int ReportRate = 6063;
constexpr int ReportMetresPerMin = 6064;
constexpr int ReportFeetPerMin = 6065;
constexpr int ReportTime = 6066;
constexpr int ReportMin = 6067;
constexpr int ReportRun = 6068;
constexpr int ReportName = 6069;
constexpr int ReportMValue = 6070;
constexpr int ReportGF = 6071;
constexpr int ReportStatus = 6072;
constexpr int ReportCNS = 6073;
constexpr int ReportOTU = 6074;
constexpr int ReportGas = 6075;
constexpr int ReportO2 = 6076;
constexpr int ReportHe = 6077;
constexpr int ReportUsed = 6078;
constexpr int ReportLitres = 6079;
constexpr int ReportCubicFeet = 6080;
constexpr int ReportProgram = 6081;
constexpr int ReportHighFactor = 6082;
constexpr int ReportDate = 6083;
constexpr int ReportTitle = 6084;
constexpr int ReportPrintedBy = 6085;
constexpr int ReportAid = 6086;
constexpr int ReportRisk = 6087;
constexpr int ReportBottom = 6088;
constexpr int ReportBottomRun = 6091;
constexpr int ReportMinutes = 6092;
constexpr int ReportStopGas = 6093;
constexpr int ReportStopUsed = 6094;
constexpr int ReportStopModel = 6095;
constexpr int ReportStops = 6096;
constexpr int ReportGasUse = 6100;
constexpr int ReportGases = 6102;
constexpr int ReportRMV = 6103;
constexpr int ReportLitresPerMin = 6104;
constexpr int ReportCubicFeetPerMin = 6105;
constexpr int ReportDecoRMV = 6106;
constexpr int ReportTotal = 6108;
constexpr int ReportTotalLitres = 6109;
constexpr int ReportTotalCubicFeet = 6110;
constexpr int ReportTotalAndHalf = 6111;
constexpr int ReportSummary = 6112;
constexpr int ReportDive = 6114;
constexpr int ReportRunTime = 6115;
constexpr int ReportStopTime = 6116;
constexpr int ReportMaxDepth = 6117;
constexpr int ReportSummaryMin = 6118;
constexpr int ReportSummaryMetres = 6119;
constexpr int ReportSummaryFeet = 6120;
constexpr int ReportTotalCNS = 6121;
constexpr int ReportTotalOTU = 6122;
constexpr int ReportMinPPO2 = 6123;
constexpr int ReportMaxPPO2 = 6124;
constexpr int ReportMaxEND = 6125;
constexpr int ReportSummarySettings = 6126;
constexpr int ReportSummaryUnits = 6127;
constexpr int ReportSetpoint = 6128;
constexpr int DecoTables = 6132;
constexpr int BailoutTables = 6134;
constexpr int CopiedTime = 6142;

// Gas warnings: titles
constexpr int ENDTooDeep = 6160;
constexpr int PPO2TooHigh = 6161;
constexpr int PPO2TooLow = 6162;

// Captions, values, languages
constexpr int CaptionTemplate = 6163;
constexpr int WaypointIncomplete = 6164;
constexpr int InfoMetric = 6166;
constexpr int InfoImperial = 6167;
constexpr int InfoOn = 6168;
constexpr int InfoOff = 6169;
constexpr int InfoHighGF = 6170;
constexpr int InfoLowGF = 6171;
constexpr int LanguagesChoice = 6172;
constexpr int LanguagesRestart = 6173;

// Gas mixer
constexpr int MixerCurrentFill = 6300;
constexpr int MixerCurrentO2 = 6301;
constexpr int MixerCurrentHe = 6302;
constexpr int MixerCurrentN2 = 6303;
constexpr int MixerCurrent = 6304;
constexpr int MixerDesired = 6305;
constexpr int MixerDesiredFill = 6306;
constexpr int MixerDesiredO2 = 6307;
constexpr int MixerDesiredHe = 6308;
constexpr int MixerDesiredN2 = 6309;
constexpr int MixerPrint = 6310;
constexpr int MixerClose = 6311;
constexpr int MixerVanDerWaals = 6312;
constexpr int MixerAirTop = 6313;
constexpr int Bar = 6314;
constexpr int Psi = 6315;
constexpr int MixerTitle = 6318;
constexpr int MixerSheet = 6319;
constexpr int MixerDate = 6320;
constexpr int ToolInterval = 6333;
constexpr int MixerUseEmpty = 6334;
constexpr int MixerOver100 = 6335;
constexpr int MixerToAdd = 6401;
constexpr int MixerO2 = 6402;
constexpr int MixerN2 = 6403;
constexpr int MixerHe = 6404;
constexpr int MixerAir = 6405;

// Program
constexpr int MenuRecent = 7000;
constexpr int MenuUndo = 7001;
constexpr int MenuRedo = 7002;
constexpr int MenuEdit = 7003;
constexpr int MenuAddWaypoint = 7004;
constexpr int ExportPng = 7005;
constexpr int ExportSvg = 7006;
constexpr int RecoveryQuestion = 7007;
constexpr int RecoveryTitle = 7008;
constexpr int HelpContents = 7009;
constexpr int HelpSearch = 7010;
constexpr int HelpNothing = 7011;
constexpr int MenuSystem = 7012;
constexpr int MenuContributors = 7013;
constexpr int Close = 7014;
constexpr int Help = 7015;
constexpr int AboutTitle = 7016;
constexpr int ContributorsTitle = 7017;
constexpr int SystemTitle = 7018;
constexpr int AboutVersion = 7019;
constexpr int DoesNotDecompress = 7020;
constexpr int FileNotOpened = 7022;
constexpr int FileNotSaved = 7023;
constexpr int AboutProgram = 7024;
constexpr int MenuResetZoom = 7025;
constexpr int PngFilter = 7026;
constexpr int SvgFilter = 7027;
constexpr int Depth = 7028;
constexpr int RunTime = 7029;
constexpr int Gas = 7030;
constexpr int PPO2 = 7031;
constexpr int Ceiling = 7032;
constexpr int SystemCopy = 7033;
constexpr int AboutRisk = 7036;
constexpr int ContributorsNames = 7037;
constexpr int MenuClearRecent = 7038;
constexpr int SoundOff = 7040;
constexpr int SoundOn = 7041;
constexpr int CellNotGiven = 7050;
constexpr int GasNameFault = 7051;
constexpr int ConvertToFeet = 7052;
constexpr int ConvertToMetres = 7053;
constexpr int WaypointPointAtGas = 7054;
constexpr int NotUnderstood = 7055;
constexpr int SwitchTo = 7056;
constexpr int IntervalNotAdded = 7100;
constexpr int GraphHint = 7101;
constexpr int MenuFitPlan = 7102;
constexpr int ToolFitPlan = 7103;

// Waypoint, template: messages
constexpr int SharesNot100 = 7150;
constexpr int CellNoNumber = 7151;
constexpr int WaypointDescent = 7152;
constexpr int WaypointAscent = 7153;
constexpr int WaypointDescentTakes = 7154;
constexpr int WaypointAscentTakes = 7155;
constexpr int WaypointLevel = 7156;
constexpr int GasAtDepth = 7157;
constexpr int DiluentPPO2 = 7158;
constexpr int MOD = 7159;
constexpr int DepthNegative = 7160;
constexpr int WaypointOfPlan = 7161;
constexpr int GasNameTaken = 7162;
constexpr int FactorsExample = 7163;
constexpr int InMetresPerMin = 7164;
constexpr int InFeetPerMin = 7165;
constexpr int HoursAndMinutes = 7166;

// Preview, printer, PDF
constexpr int ReportNotWritten = 7200;
constexpr int NoPrinter = 7201;
constexpr int PrinterFailed = 7202;
constexpr int PreviewZoomIn = 7203;
constexpr int PreviewZoomOut = 7204;
constexpr int PreviewPrint = 7205;
constexpr int PreviewSetUp = 7206;
constexpr int PreviewFirst = 7207;
constexpr int PreviewPrevious = 7208;
constexpr int PreviewNext = 7209;
constexpr int PreviewLast = 7210;
constexpr int PreviewPdf = 7211;
constexpr int PdfTitle = 7212;
constexpr int PdfFilter = 7213;
constexpr int PdfNotWritten = 7214;
constexpr int InfoCopy = 7215;
constexpr int InfoCopied = 7216;
constexpr int SelectionTitle = 7217;
constexpr int SelectionThisDive = 7218;
constexpr int SelectionAllDives = 7219;

// Tables and cards
constexpr int TablesBeyondPlanning = 7300;
constexpr int TablesTooMany = 7301;
constexpr int TableColumn = 7302;
constexpr int TableColumns = 7303;
constexpr int TableTo = 7304;
constexpr int TableStopAlso = 7305;
constexpr int Minutes = 7306;
constexpr int TableBreathe = 7307;
constexpr int TableAt = 7308;
constexpr int TablePPO2Low = 7309;
constexpr int TableLost = 7310;
constexpr int TableAllGases = 7311;
constexpr int TableWholeBehind = 7312;
constexpr int CardLeaveAt = 7314;
constexpr int CardDepth = 7315;
constexpr int CardStop = 7316;
constexpr int CardRun = 7317;
constexpr int CardGas = 7318;
constexpr int CardGasNeeded = 7319;
constexpr int CardLitres = 7320;
constexpr int CardCubicFeet = 7321;
constexpr int TableDoesNotDecompress = 7322;
constexpr int TableNumber = 7323;
constexpr int BailoutPrintTables = 7324;
constexpr int BailoutPrintCards = 7325;
constexpr int NoNumber = 7326;
constexpr int PlanClosed = 7327;
constexpr int GasGone = 7328;
constexpr int WarnNoMore = 7329;
constexpr int TableStillOnLostGas = 7330;
constexpr int TablePPO2High = 7331;
constexpr int TablesBusy = 7332;
constexpr int TablesOtherUnits = 7333;
constexpr int ReportDiveOf = 7336;

// Gas mixer: the list to fill by
constexpr int FillTitle = 7400;
constexpr int FillGas = 7401;
constexpr int FillTo = 7402;
constexpr int FillIfIdeal = 7403;
constexpr int FillAmount = 7404;
constexpr int FillStart = 7405;
constexpr int Helium = 7406;
constexpr int Oxygen = 7407;
constexpr int Air = 7408;
constexpr int Nitrogen = 7409;
constexpr int FillMustComeOut = 7410;
constexpr int FillDrainTo = 7412;
constexpr int FillEvacuateTo = 7413;
constexpr int FillNoDraining = 7414;
constexpr int FillNothing = 7415;
constexpr int FillOutcome = 7416;
constexpr int FillOutcomeIfIdeal = 7417;
constexpr int FillOxygenOff = 7418;
constexpr int FillHeliumOff = 7419;
constexpr int FillAbsolute = 7420;
constexpr int FillNoDepth = 7422;
constexpr int Litres = 7423;
constexpr int CubicFeet = 7424;
constexpr int Metres = 7425;
constexpr int Feet = 7426;
constexpr int MixerMustBeAbove0 = 7427;
constexpr int MixerMustBeAtMost = 7428;
constexpr int IsMissing = 7430;
constexpr int IsNoNumber = 7431;
constexpr int MixerCylinder = 7433;
constexpr int MixerRated = 7434;
constexpr int MixerAmountHelp = 7435;
constexpr int MixerHeliumHelp = 7436;
constexpr int MixerOxygenHelp = 7437;
constexpr int MixerTopHelp = 7438;
constexpr int SheetAnalysed = 7440;
constexpr int SheetO2 = 7441;
constexpr int SheetHe = 7442;
constexpr int SheetDate = 7443;
constexpr int SheetName = 7444;

// Pane of the plan
constexpr int Time = 7502;
constexpr int DepthTooDeep = 7503;
constexpr int TimeNegative = 7504;
constexpr int TimeTooLong = 7505;
constexpr int NoSuchGas = 7506;
constexpr int TooManyRows = 7507;
constexpr int MenuView = 7508;
constexpr int MenuPlanPane = 7509;
constexpr int MenuGoToPlan = 7510;
constexpr int PaneTitle = 7511;
constexpr int PanePlanDive = 7512;
constexpr int PaneAddLeg = 7513;
constexpr int PaneTimeMeans = 7514;
constexpr int PaneKinds = 7515;  // and the 5 that follow, by kind of row
constexpr int PaneRun = 7521;
constexpr int PaneTotals = 7522;
constexpr int PaneGases = 7523;
constexpr int PaneNoAscent = 7524;
constexpr int PaneCopySchedule = 7525;
constexpr int PaneLegs = 7526;
constexpr int PaneSchedule = 7527;
constexpr int PaneAscent = 7530;
constexpr int PaneMenu = 7531;  // and the 6 that follow, from "Insert a leg" to "Paste"
constexpr int PaneFactors = 7540;
constexpr int PaneLastStop = 7541;
constexpr int PaneEdit = 7542;
constexpr int PaneAscentWord = 7543;
constexpr int PaneLegFault = 7544;
constexpr int PaneAboveCeiling = 7545;
constexpr int PaneFactorsOutside = 7546;
constexpr int PaneSettings = 7547;
constexpr int WaypointEditLeg = 7548;
constexpr int PaneLastStopFault = 7549;

// What the check finds
constexpr int Atmospheres = 7600;
constexpr int Hypoxic = 7601;
constexpr int HypoxicLoop = 7602;
constexpr int Hyperoxic = 7603;
constexpr int HyperoxicLoop = 7604;
constexpr int HyperoxicEverywhere = 7605;
constexpr int SetpointTooHigh = 7606;
constexpr int SetpointTooLow = 7607;
constexpr int NarcoticForHelium = 7608;
constexpr int NarcoticForNitrogen = 7609;
constexpr int Dense = 7610;
constexpr int DenseLoop = 7611;
constexpr int CounterDiffusion = 7612;
constexpr int ChangeHidden = 7613;
constexpr int ChangeHiddenAtDepth = 7614;
constexpr int ChangeToUnknown = 7615;
constexpr int ChangeTooDeep = 7616;
constexpr int LegAboveCeiling = 7617;
constexpr int StopNeverClears = 7618;
constexpr int LegLengthened = 7619;
constexpr int LegAtSurface = 7620;
constexpr int CNSHigh = 7621;
constexpr int CNSBeyond = 7622;
constexpr int OTUHigh = 7623;
constexpr int GasWithoutOxygen = 7624;
constexpr int StopReason = 7625;
constexpr int StopReasonOfGF = 7626;
constexpr int TheSurface = 7627;
constexpr int GasRunsOut = 7630;
constexpr int GasIntoReserve = 7631;
constexpr int GasWithoutCylinder = 7632;
constexpr int LegBelowMinimum = 7633;
constexpr int LegNoWayUp = 7634;

// Gas supply
constexpr int SupplyTitle = 7635;
constexpr int SupplyLegs = 7636;
constexpr int SupplyCylinders = 7637;
constexpr int SupplyFill = 7638;
constexpr int SupplyCarried = 7639;
constexpr int SupplyUsed = 7640;
constexpr int SupplyLeft = 7641;
constexpr int SupplyAtEnd = 7642;
constexpr int SupplyVerdict = 7643;
constexpr int SupplyLeg = 7644;
constexpr int SupplyMinimumGas = 7645;
constexpr int SupplyMinimum = 7646;
constexpr int SupplyTurnAt = 7647;
constexpr int SupplyWorking = 7648;
constexpr int SupplyEnough = 7649;
constexpr int SupplyIntoReserve = 7650;
constexpr int SupplyNoCylinder = 7652;
constexpr int SupplyNotBreathed = 7653;
constexpr int SupplyUnknownGas = 7654;
constexpr int SupplyTooLittle = 7655;
constexpr int SupplyNoWayUp = 7656;
constexpr int SupplyWorkingOfTeam = 7657;
constexpr int SupplyWorkingOfOne = 7658;
constexpr int MenuCylinders = 7659;
constexpr int CylindersTitle = 7660;
constexpr int CylindersCount = 7661;
constexpr int CylindersSize = 7662;
constexpr int CylindersUnit = 7663;
constexpr int CylindersRated = 7664;
constexpr int CylindersReserve = 7665;
constexpr int CylindersMetric = 7666;
constexpr int CylindersImperial = 7667;
constexpr int CylindersAdd = 7668;
constexpr int CylindersRemove = 7669;
constexpr int CylindersKind = 7670;
constexpr int CylindersTrouble = 7671;
constexpr int CylindersDivers = 7672;
constexpr int CylindersFactor = 7673;
constexpr int CylindersMinutes = 7674;
constexpr int CylindersTurn = 7675;
constexpr int TurnAllUsable = 7676;
constexpr int TurnHalf = 7677;
constexpr int TurnThird = 7678;
constexpr int CylindersFault = 7679;
constexpr int CylindersRange = 7680;
constexpr int CylindersAboveFill = 7681;
constexpr int CylindersNoRows = 7682;
constexpr int InfoDive = 7683;

// Check
constexpr int CheckTitle = 7684;
constexpr int CheckNothing = 7685;
constexpr int CheckCountNothing = 7686;
constexpr int Danger = 7688;
constexpr int Caution = 7689;
constexpr int Note = 7690;
constexpr int MenuCheckPane = 7691;
constexpr int CheckFault = 7692;

// What if
constexpr int MenuWhatIf = 7700;
constexpr int WhatIfTitle = 7701;
constexpr int WhatIfLonger = 7702;
constexpr int WhatIfMinutes = 7703;
constexpr int WhatIfDeeper = 7704;
constexpr int WhatIfKinds = 7705;  // and the 5 that follow, by kind of column
constexpr int WhatIfLost = 7709;
constexpr int WhatIfLongerBy = 7711;
constexpr int WhatIfDeeperBy = 7712;
constexpr int WhatIfMoment = 7713;
constexpr int WhatIfRunTime = 7714;
constexpr int WhatIfStops = 7715;
constexpr int WhatIfCNS = 7716;
constexpr int WhatIfCarried = 7717;
constexpr int WhatIfEndless = 7720;
constexpr int WhatIfImpossible = 7721;
constexpr int WhatIfStop = 7722;
constexpr int WhatIfWithAscent = 7723;
constexpr int WhatIfNothing = 7724;
constexpr int WhatIfFault = 7725;
constexpr int WhatIfGraph = 7726;
constexpr int WhatIfSlateWith = 7727;
constexpr int WhatIfSlateChoices = 7728;  // and the 2 that follow, by choice
constexpr int WhatIfSlate = 7731;

// Slate
constexpr int MenuSlate = 7732;
constexpr int SlateTitle = 7733;
constexpr int SlateUntil = 7734;
constexpr int SlateTurn = 7735;
constexpr int SlateDoesNotDecompress = 7736;
constexpr int SlateSurface = 7737;
constexpr int SlateLoop = 7738;
constexpr int SlatePPO2 = 7739;
constexpr int SlateSteps = 7740;
constexpr int DiveOfSeries = 7741;
constexpr int SlateAltitudes = 7742;
constexpr int SlateAltitude = 7743;
constexpr int NeverUnderWater = 7758;

// Main window: views, tools
constexpr int MenuViewCeiling = 7761;
constexpr int MenuViewStopMinutes = 7762;
constexpr int MenuViewDepths = 7763;
constexpr int MenuViewTissues = 7764;
constexpr int TissuesTitle = 7765;
constexpr int TissuesOver = 7766;
constexpr int ToolMixer = 7767;
constexpr int SoundOffHelp = 7768;
constexpr int SoundOnHelp = 7769;

// What goes wrong in the program
constexpr int ErrorTitle = 7771;
constexpr int ErrorReport = 7772;
constexpr int ErrorUnknown = 7773;
constexpr int PrinterUnusable = 7774;
constexpr int PrintingFailed = 7775;
constexpr int LanguageNotFound = 7776;
constexpr int LanguageLineFault = 7777;
constexpr int NoPageFile = 7778;
constexpr int PdfUsage = 7779;
constexpr int IntervalBeyondPlan = 7780;
constexpr int DescentTakesTime = 7781;
constexpr int TableFaultOf = 7782;

// Import and export
constexpr int ImportOxygenUntold = 7783;
constexpr int ImportNoOxygen = 7784;
constexpr int ExportWithoutLoads = 7785;
constexpr int OutputIsInput = 7786;
constexpr int ImportPlanContradicted = 7787;
constexpr int ImportLinesWithoutGas = 7788;
constexpr int ImportMoreColumns = 7789;
constexpr int ImportFromSettings = 7790;
constexpr int ImportOneLeg = 7791;
constexpr int ImportControlCharacter = 7792;
constexpr int ImportQuoteOpen = 7793;
constexpr int MenuImport = 7800;
constexpr int MenuExport = 7801;
constexpr int ImportTitle = 7802;
constexpr int ExportTitle = 7803;
constexpr int ImportFilter = 7804;
constexpr int ExportFilter = 7805;
constexpr int ImportRemarks = 7806;
constexpr int ImportLegs = 7810;
constexpr int ImportGasAdded = 7811;
constexpr int ImportNoGas = 7812;
constexpr int ImportSetpoint = 7813;
constexpr int ImportEndsBelow = 7814;
constexpr int ImportInterval = 7815;
constexpr int ImportIntervalAssumed = 7816;
constexpr int ImportNoDepths = 7817;
constexpr int ImportSurfacePressure = 7818;
constexpr int ImportCylinderLeftOut = 7819;
constexpr int ImportLeavesLoop = 7820;
constexpr int ImportChangesLeftOut = 7821;
constexpr int ImportFileTooLarge = 7830;
constexpr int ImportNoXml = 7831;
constexpr int ImportDocumentType = 7832;
constexpr int ImportTooDeeplyNested = 7833;
constexpr int ImportNoUddf = 7834;
constexpr int ImportNoDive = 7835;
constexpr int ImportNumberOutside = 7836;
constexpr int ImportNoDiveTime = 7837;
constexpr int ImportNotInOrder = 7838;
constexpr int ImportUnknownGas = 7839;
constexpr int ImportTooManySamples = 7840;
constexpr int ImportSharesBeyondWhole = 7841;
constexpr int ImportOtherGas = 7842;
constexpr int ImportNoSuchDive = 7843;
constexpr int ImportTooManyLegs = 7844;
constexpr int ImportNoWaypoint = 7845;
constexpr int ImportNoSeparator = 7846;
constexpr int ImportTooManyDives = 7847;
constexpr int ImportTooManyGases = 7848;

// Terminal: how it is called
constexpr int UsageNotWhole = 7849;
constexpr int UsageNoneOf = 7850;
constexpr int UsageNoSuchCommand = 7851;
constexpr int UsageNoCommand = 7852;
constexpr int UsageNotExpected = 7853;
constexpr int UsageMissing = 7854;
constexpr int UsageNoLegs = 7855;
constexpr int UsageNeeds = 7856;
constexpr int UsageExclude = 7857;
constexpr int UsageNoValue = 7858;
constexpr int UsageTwice = 7859;

// What can not be planned on
constexpr int NotFinite = 7860;
constexpr int BeyondRange = 7861;
constexpr int StepTooSmall = 7862;
constexpr int NoSetpoint = 7865;
constexpr int NoDecoSetpoint = 7866;
constexpr int Ascent = 7869;
constexpr int Descent = 7870;
constexpr int NoRate = 7871;
constexpr int NoRateAtSurface = 7872;
constexpr int NumberOfRates = 7873;
constexpr int RateTooSlow = 7874;
constexpr int RatesNotInOrder = 7875;
constexpr int GasNotFinite = 7876;
constexpr int GasOutside = 7877;
constexpr int GasEmpty = 7878;
constexpr int NoGas = 7879;
constexpr int DepthOfChange = 7880;
constexpr int LegDepth = 7881;
constexpr int LegTime = 7882;
constexpr int LegGas = 7883;
constexpr int ActionFault = 7884;
constexpr int DiveNotComputed = 7885;
constexpr int NoLegs = 7886;
constexpr int TooManyCuts = 7887;
constexpr int TooManyCutRows = 7888;
constexpr int GasKeepsCeiling = 7889;
constexpr int LoopKeepsCeiling = 7890;
constexpr int CylinderCount = 7891;
constexpr int CylinderSize = 7892;
constexpr int CylinderRated = 7893;
constexpr int CylinderFill = 7894;
constexpr int CylinderReserve = 7895;
constexpr int CylinderReserveAboveFill = 7896;
constexpr int CylinderNoRated = 7897;

// Files: why one can't be read or written
constexpr int NotOpened = 7898;
constexpr int NotRead = 7899;
constexpr int NotWritten = 7900;
constexpr int NotReplaced = 7901;
constexpr int IsFolder = 7902;
constexpr int IsTooLarge = 7903;
constexpr int NoSuchFile = 7904;
constexpr int PermissionDenied = 7905;
constexpr int NoSpaceLeft = 7906;
constexpr int IsDirectory = 7907;
constexpr int ReadOnly = 7908;
constexpr int InputOutputError = 7909;
constexpr int NotDirectory = 7910;
constexpr int NameTooLong = 7911;

// Plan files, line by line
constexpr int SeriesTooLong = 7912;
constexpr int DiveBegins = 7913;
constexpr int LineMissing = 7914;
constexpr int NoSurfaceTime = 7915;
constexpr int SurfaceTimeOutside = 7916;
constexpr int SurfaceTimeOfFirst = 7917;
constexpr int FileEnds = 7919;
constexpr int TooManyActions = 7920;
constexpr int ActionDepth = 7922;
constexpr int ActionTime = 7923;
constexpr int ActionMix = 7924;
constexpr int NoAscentBefore = 7926;

// Templates, line by line
constexpr int KeyTwice = 7927;
constexpr int KeyUnknown = 7928;
constexpr int KeyTooLarge = 7929;
constexpr int KeyShouldBeNumber = 7930;
constexpr int KeyNoFlag = 7931;
constexpr int KeyShouldBeFlag = 7932;
constexpr int KeyNot16Bits = 7933;
constexpr int KeyFactorsSwapped = 7934;
constexpr int KeyTooManyEntries = 7935;
constexpr int KeyNoColon = 7936;
constexpr int KeyNoComma = 7937;
constexpr int KeyTooManyBlends = 7938;
constexpr int KeyShouldBeBlend = 7939;
constexpr int KeyShouldGiveShares = 7940;
constexpr int KeySumOfShares = 7941;
constexpr int KeyNoDepth = 7942;
constexpr int KeyNoSuchGas = 7943;
constexpr int CylinderOfLine = 7945;
constexpr int CylinderUnknownGas = 7946;
constexpr int TemplateBegins = 7947;
constexpr int TemplateEndIgnored = 7948;
constexpr int CylinderNoGas = 7949;
constexpr int CylinderNoNumber = 7950;
constexpr int CylinderNumberTooLarge = 7951;
constexpr int CylinderMustFollow = 7952;
constexpr int TemplateIgnored = 7953;

// Terminal
constexpr int BuiltInSettings = 7954;
constexpr int Advice = 7955;
constexpr int NoFaults = 7956;
constexpr int OptionNoNumber = 7957;
constexpr int OptionUnknownGas = 7958;
constexpr int OptionMustBe = 7959;
constexpr int OptionOutside = 7960;
constexpr int OptionNoSuchDive = 7961;
constexpr int HeadDiveOf = 7962;
constexpr int HeadDiveAfter = 7963;
constexpr int HeadDepthsAdjusted = 7965;
constexpr int HeadOpenCircuit = 7966;
constexpr int HeadLoop = 7967;
constexpr int HeadStopsOpen = 7968;
constexpr int HeadSeaLevel = 7969;
constexpr int HeadNotAdapted = 7970;
constexpr int HeadEndsAt = 7971;
constexpr int HeadStops = 7972;
constexpr int ScheduleLevel = 7973;
constexpr int ScheduleSwitch = 7974;
constexpr int ScheduleStop = 7975;
constexpr int ScheduleSurface = 7976;
constexpr int ScheduleRun = 7977;
constexpr int ScheduleTotals = 7978;
constexpr int ScheduleGas = 7979;
constexpr int ScheduleNoAscent = 7980;
constexpr int BailoutHeading = 7981;
constexpr int BailoutLost = 7982;
constexpr int BailoutAllGases = 7983;
constexpr int TablesHeading = 7984;
constexpr int TablesDescentCounts = 7985;
constexpr int TablesDescentLeftOut = 7986;
constexpr int TablesRounded = 7987;
constexpr int NewPlan = 7988;
constexpr int OptionMoreThanWhole = 7989;
constexpr int OptionNoPressure = 7990;
constexpr int OptionCylinder = 7991;
constexpr int PdfNotDrawn = 7992;
constexpr int PdfNotStarted = 7993;
constexpr int UsageIsToldBy = 7995;

// Entries that are not taken
constexpr int EntryNotTaken = 8000;
constexpr int HeldByTables = 8001;
constexpr int AsBefore = 8002;
constexpr int SavedWithoutEntry = 8003;
constexpr int ClosedWithoutEntry = 8004;
constexpr int BoldFactors = 8006;

// Closing, recovery, saving
constexpr int CloseDiveQuestion = 8050;
constexpr int CloseDiveTitle = 8051;
constexpr int CloseTakeOut = 8052;
constexpr int CloseSeries = 8053;
constexpr int CloseStay = 8054;
constexpr int RecoverySavedSince = 8056;
constexpr int RecoveryNameless = 8057;
constexpr int SavedOtherOwner = 8060;
constexpr int SavedOtherGroup = 8061;
constexpr int SavedOtherNames = 8062;
constexpr int SavedOtherAccess = 8063;
constexpr int DanglingLink = 8064;
constexpr int LinksInACircle = 8065;
constexpr int SavedBut = 8066;

// Template properties: settings of new plans, gases
constexpr int TemplateOfNewPlans = 8100;
constexpr int TemplateDropEntries = 8101;
constexpr int TemplateKeepForLater = 8102;
constexpr int BlendBroughtTo100 = 8104;
constexpr int GasOfNameDiffers = 8105;
constexpr int CellSetTo = 8106;

// Files, line by line
constexpr int TooManyNames = 8150;
constexpr int PassedOver = 8151;
constexpr int ReadBut = 8152;
constexpr int SettingsMissing = 8153;
constexpr int NotTold = 8154;
constexpr int KeyOutside = 8155;
constexpr int KeyHectopascal = 8156;
constexpr int KeyPercent = 8157;
constexpr int KeyNegative = 8158;
constexpr int ActionFields = 8159;
constexpr int KeyHoldsNoNumber = 8160;
constexpr int KeyThreeFactors = 8161;
constexpr int ActionKind = 8162;
constexpr int AscentTakesNothing = 8163;
constexpr int AltitudeContradicts = 8164;
constexpr int DecimalComma = 8165;
constexpr int StartPressureUnusual = 8166;
constexpr int EndPressureUnusual = 8167;

// Tables: heads and notes
constexpr int TableOn = 8250;
constexpr int TableStopInstead = 8251;
constexpr int TableBailout = 8252;
constexpr int TableOpen = 8253;
constexpr int TableLoop = 8254;
constexpr int TableLoopStopsOpen = 8255;
constexpr int LacksAscent = 8256;
constexpr int SlateWithoutAscent = 8257;
constexpr int SlateDepthsIn = 8258;

// The loop
constexpr int CommentOneValue = 8300;
constexpr int IntervalOnLoop = 8301;
constexpr int OxygenOnLoop = 8302;
constexpr int LoopChangesDiluent = 8303;
constexpr int LoopChangeAt = 8304;
constexpr int TemplateKeepsDiluent = 8305;
constexpr int IntervalOnAir = 8306;
constexpr int SettingKeepsDiluent = 8307;
constexpr int SettingTakesChanges = 8308;
constexpr int SettingIntervalOnAir = 8309;
constexpr int SettingIntervalOnLoop = 8310;
constexpr int FileTakesChanges = 8311;
constexpr int FileIntervalOnLoop = 8312;

// What the check finds, too
constexpr int CNSCarried = 8350;
constexpr int OTUCarried = 8351;
constexpr int LegAboveCeilingOfGF = 8352;
constexpr int LastStopTooDeep = 8353;
constexpr int LastStopKeepsDown = 8354;
constexpr int TwoPressures = 8355;
constexpr int CounterDiffusionAlways = 8356;
constexpr int ChangeAboveLastStop = 8357;
constexpr int ChangeBetweenStops = 8358;
constexpr int ChangeTooRich = 8359;
constexpr int LegGasGone = 8360;
constexpr int TurnPassed = 8361;

// Import, too
constexpr int ImportReadAs = 8362;
constexpr int ImportOverlaps = 8363;
constexpr int ImportBackwards = 8364;
constexpr int ImportIntervalContradicted = 8365;
constexpr int ImportModeNotPlanned = 8366;
constexpr int ImportTwoOfOneId = 8367;
constexpr int ImportSharesNotWhole = 8368;
constexpr int ImportHeadingWithDigits = 8369;

// Gas mixer: steps, temperature, what came out
constexpr int FillTemperature = 8401;
constexpr int FillNoNitrogen = 8402;
constexpr int FillOutOfReach = 8403;
constexpr int FillNoPressure = 8404;
constexpr int FillWithAir = 8405;
constexpr int FillNearest = 8406;
constexpr int FillWarm = 8407;
constexpr int FillWarmTo = 8408;
constexpr int FillDrained = 8409;
constexpr int Degrees = 8410;
constexpr int DegreesBoth = 8411;
constexpr int StepsForm = 8412;
constexpr int StepsMustRise = 8413;
constexpr int StepsGive = 8414;
constexpr int StepsFilledTo = 8415;
constexpr int StepsFault = 8416;
constexpr int MixerOutside = 8417;
constexpr int MixerHowFilled = 8420;
constexpr int MixerTopO2 = 8421;
constexpr int MixerTopHe = 8422;
constexpr int MixerGaugeAt = 8423;
constexpr int MixerCelsius = 8424;
constexpr int MixerWarmAt = 8425;
constexpr int MixerCameOut = 8426;
constexpr int MixerSteps = 8427;
constexpr int MixerGoOn = 8428;
constexpr int MixerWarmHelp = 8429;
constexpr int MixerStepsHelp = 8430;
constexpr int MixerMendHelp = 8431;

// Program: outputs, displays, sizes
constexpr int PipeWithoutWriter = 8500;
constexpr int OutputNotWritten = 8501;
constexpr int NoDisplay = 8502;
constexpr int OptionNoSize = 8600;
constexpr int OutputIsTrace = 8601;
constexpr int TeamForm = 8610;
constexpr int BailOutTitle = 8611;
constexpr int BailOutNumber = 8612;
constexpr int BailOutWayUp = 8613;
constexpr int BailOutTooLittle = 8614;
constexpr int BailOutIntoReserve = 8615;
constexpr int BailOutNoCylinder = 8616;
constexpr int BailOutNotTold = 8617;
constexpr int BailOutNeverEnds = 8618;
constexpr int SupplyNotTold = 8619;
constexpr int SupplyNeeded = 8620;
constexpr int CylindersBailOut = 8621;
constexpr int WhatIfAllLost = 8622;
constexpr int WhatIfNoGasBefore = 8623;
constexpr int WhatIfOTU = 8624;
constexpr int WhatIfFactors = 8660;
constexpr int WhatIfPick = 8661;
constexpr int MenuClearLine = 8662;
constexpr int SupplyOfLoop = 8663;
constexpr int WhatIfMinimum = 8664;
constexpr int OptionGradientFactors = 8665;
constexpr int WhatIfNoFactors = 8666;
constexpr int SupplyTooLittleForLeg = 8667;
constexpr int SupplyPressureIn = 8640;
constexpr int CylindersSet = 8641;
constexpr int CylindersTakeSet = 8642;
constexpr int CylindersSaveSet = 8643;
constexpr int CylindersDeleteSet = 8644;
constexpr int CylindersSetName = 8645;
constexpr int CylindersUp = 8646;
constexpr int CylindersDown = 8647;
constexpr int CylindersChooseGas = 8648;
constexpr int CylinderSetsBroken = 8649;
constexpr int CylindersReplaceSet = 8650;
constexpr int CylindersDropSet = 8651;
constexpr int SetOfTwinset = 8652;
constexpr int SetOfSingle = 8653;
constexpr int SetOfBailOut = 8654;
constexpr int CylinderSetNoName = 8655;

// The page ahead of the bail-out tables
constexpr int WaysOutHead = 8630;
constexpr int WayOutLongest = 8631;
constexpr int WayOutMost = 8632;

// Between the rows: gradients in use, leaving now
constexpr int GF99 = 8700;
constexpr int SurfaceGF = 8701;
constexpr int LeavingNow = 8702;
constexpr int LeavingOnLoop = 8703;
constexpr int LeavingOpen = 8704;
constexpr int LeavingEndless = 8705;
constexpr int HeadToSurface = 8706;
constexpr int HeadOnLoop = 8707;
constexpr int HeadOnOpenCircuit = 8708;
constexpr int HeadWayUpGas = 8709;
constexpr int HeadNever = 8710;

// Comparison
constexpr int CompareTitle = 8860;
constexpr int MenuKeepPlan = 8861;
constexpr int MenuCompare = 8862;
constexpr int MenuClearKept = 8863;
constexpr int KeptForComparison = 8864;
constexpr int CompareShow = 8865;
constexpr int CompareKeep = 8866;
constexpr int CompareClear = 8867;
constexpr int ComparePrint = 8868;
constexpr int CompareLeg = 8869;
constexpr int CompareNothing = 8870;
constexpr int CompareUnits = 8871;
constexpr int KeptName = 8872;
constexpr int CompareInterval = 8873;
constexpr int CompareAdapted = 8874;
constexpr int CompareStartPressure = 8875;
constexpr int CompareEndAltitude = 8876;
constexpr int CompareCylinders = 8877;
constexpr int CompareTeam = 8878;
constexpr int CompareTwoPlans = 8880;

// Plan sheet, and the texts of a plan
constexpr int MenuPlanSheet = 8900;
constexpr int PlanSheetTitle = 8901;
constexpr int PlanSheetName = 8902;
constexpr int PlanSheetPlace = 8903;
constexpr int PlanSheetNotes = 8904;
constexpr int PlanSheetWithMargins = 8905;
constexpr int PlanSheetPreview = 8906;
constexpr int PlanSheetPaper = 8907;
constexpr int PaperA4 = 8908;
constexpr int PaperLetter = 8909;
constexpr int PlanTextTooLong = 8910;
constexpr int PlanTextControl = 8911;
constexpr int PlanTextEscape = 8912;
constexpr int PlanSheetSchedule = 8913;
constexpr int PlanSheetOtherwise = 8914;
constexpr int PlanSheetFirstStop = 8915;
constexpr int PlanSheetSignature = 8916;
constexpr int PlanSheetGoesOn = 8917;
constexpr int PlanSheetPageOf = 8918;
constexpr int PlanSheetPPO2 = 8919;
constexpr int PlanSheetEND = 8920;
constexpr int PlanSheetRMV = 8921;
constexpr int PlanSheetTeam = 8922;
constexpr int PlanSheetNoCylinders = 8923;
constexpr int PlanSheetBailOutMost = 8924;
constexpr int PlanTextsHelp = 8925;

// The main window: layout, leaving, what was done, command search
constexpr int MenuDefaultLayout = 8810;
constexpr int OneDanger = 8811;
constexpr int Dangers = 8812;
constexpr int OneCaution = 8813;
constexpr int Cautions = 8814;
constexpr int OneNote = 8815;
constexpr int Notes = 8816;
constexpr int LeavingQuestion = 8817;
constexpr int LeavingSaveAll = 8818;
constexpr int LeavingDiscardAll = 8819;
constexpr int LeavingSaveTicked = 8820;
constexpr int MenuReopen = 8821;
constexpr int ReopenGone = 8822;
constexpr int FileChangedQuestion = 8823;
constexpr int FileOverwrite = 8824;
constexpr int FileSaveAs = 8825;
constexpr int FileReadAgain = 8826;
constexpr int FileGone = 8827;
constexpr int FileChangedUnsaved = 8828;
constexpr int StatusSaved = 8829;
constexpr int StatusWritten = 8830;
constexpr int StatusCopied = 8831;
constexpr int StatusPrinted = 8832;
constexpr int MenuPrint = 8833;
constexpr int SettingsOfThisPlan = 8834;
constexpr int SettingsOfNewPlans = 8835;
constexpr int MenuCommandSearch = 8836;
constexpr int SearchHint = 8837;
constexpr int CommandSearchNone = 8838;

// The graph
constexpr int MenuViewLight = 8711;
constexpr int GraphMoveHint = 8712;
constexpr int GraphLegAfter = 8713;
constexpr int GraphShiftHint = 8714;

// This dive and its gases in the pane of the plan
constexpr int GasOverHundred = 8730;
constexpr int PaneGasesAtHand = 8731;
constexpr int PaneThisDive = 8732;
constexpr int PaneRebreather = 8733;
constexpr int PaneSetpoint = 8734;
constexpr int PaneSetpointStops = 8735;
constexpr int PaneInterval = 8736;
constexpr int PaneFirstDive = 8737;
constexpr int PaneIntervalMeans = 8738;
constexpr int PaneIntervalFault = 8739;
constexpr int PaneModel = 8740;
constexpr int PaneWayUpFrom = 8741;
constexpr int PaneCylinders = 8742;
constexpr int PaneWayUpMeans = 8743;
constexpr int PaneAddGas = 8744;
constexpr int PaneGasDepthFault = 8745;
constexpr int MenuRepetitive = 8746;
constexpr int PaneSetpointBottom = 8747;
constexpr int PaneSetpointDeco = 8748;
constexpr int HeldPlan = 8749;

// Legs of the plan pane, doses carried over
constexpr int PasteHoldsNoLegs = 8770;
constexpr int PaneGasOfLegs = 8771;
constexpr int DosesCarried = 8772;
constexpr int InfoCarried = 8773;
constexpr int MarginsNoSuchLeg = 8774;
constexpr int LimitsForm = 8775;
constexpr int CompareLimits = 8776;
constexpr int LimitNone = 8777;
constexpr int LimitImpossible = 8778;
constexpr int LimitNeverUp = 8779;
constexpr int LimitCeiling = 8780;
constexpr int LimitPPO2 = 8781;
constexpr int LimitGas = 8782;
constexpr int LimitLost = 8783;
constexpr int LimitRunsOut = 8784;
constexpr int LimitAGas = 8785;
constexpr int LimitBailOut = 8786;
constexpr int LimitCNS = 8787;
constexpr int LimitRun = 8788;
constexpr int LimitStops = 8789;
constexpr int LimitBy = 8790;
constexpr int MarginsTitle = 8791;
constexpr int MarginsHead = 8792;
constexpr int MarginsLonger = 8793;
constexpr int MarginsDeeper = 8794;
constexpr int MarginsCell = 8796;
constexpr int MarginsCellLoop = 8797;
constexpr int MarginsNoGas = 8798;
constexpr int MarginsNeverLost = 8799;
constexpr int LongestTitle = 8800;
constexpr int LongestIs = 8801;
constexpr int LongestBinds = 8802;
constexpr int LongestNone = 8803;
constexpr int LongestAll = 8804;
constexpr int NoStopTitle = 8805;
constexpr int NoStopOf = 8806;
constexpr int NoStopNone = 8807;
constexpr int MarginsRange = 8808;
constexpr int MarginsCellIs = 8839;
constexpr int MarginsComputing = 8840;
constexpr int MarginsLeg = 8841;
constexpr int MarginsLimits = 8842;
constexpr int MarginsRun = 8843;
constexpr int MarginsStops = 8844;
constexpr int MarginsCNS = 8845;
constexpr int MarginsGas = 8846;
constexpr int MarginsTake = 8847;
constexpr int MarginsCompare = 8848;
constexpr int MenuMargins = 8849;
constexpr int MarginsHint = 8850;
constexpr int MarginsLimitFault = 8851;
constexpr int MarginsMinimumGas = 8852;
constexpr int TemplateDiveLimits = 8853;
constexpr int MenuMarginsPane = 8854;
constexpr int MarginsExport = 8855;
constexpr int MarginsExportTitle = 8856;
constexpr int LongestCut = 8857;

// The print dialog
constexpr int PrintOnePage = 8926;
constexpr int PrintPrinter = 8927;
constexpr int PrintCopies = 8928;
constexpr int PrintBothSides = 8929;

// More of the plan sheet, and of tables
constexpr int RateBelow = 8930;
constexpr int RatesOfPlan = 8931;
constexpr int OnOpenCircuit = 8932;
constexpr int PlanSheetBailOut = 8933;
constexpr int TurnAfterAll = 8934;
constexpr int TurnAfterHalf = 8935;
constexpr int TurnAfterThird = 8936;
constexpr int TextsOfLaterDive = 8937;
constexpr int TablesWithout = 8938;
constexpr int TooManyLegRows = 8939;

// Tables on paper: titles, units, moments, gases
constexpr int PartOf = 8940;
constexpr int TableUnits = 8941;
constexpr int TableBailoutTitle = 8942;
constexpr int TableDecoTitle = 8943;
constexpr int TableDecoGases = 8944;
constexpr int TableNoDecoGas = 8945;
constexpr int BailoutLegEnds = 8946;
constexpr int BailoutLegEndsHeading = 8947;
constexpr int TablesDecoGasesUsed = 8948;
constexpr int TablesGasFrom = 8949;
constexpr int TablesFastDescentMeans = 8950;
constexpr int WayOutOfLegEnd = 8951;

// The guide in its window
constexpr int HelpBack = 8953;
constexpr int HelpForward = 8954;

// What is told of the bottom of a deco table
constexpr int TableBottomEND = 8955;
constexpr int TableBottomDense = 8956;

// Example plans
constexpr int ExampleAirNoStop = 8957;
constexpr int ExampleAirDeco = 8958;
constexpr int ExampleNitrox = 8959;
constexpr int ExampleWreck = 8960;
constexpr int ExampleTrimix = 8961;
constexpr int ExampleRebreather = 8962;
constexpr int ExampleLakeSeries = 8963;
constexpr int MenuExamples = 8964;
constexpr int PaneExamples = 8965;

// Tips
constexpr int TemplateSurfacePressureMeans = 8967;

// Gases on what is read under water
constexpr int GasOxygen = 8968;
constexpr int GasAir = 8969;

// What tavplan can't edit or tell
constexpr int EditGasBreathed = 8970;
constexpr int EditAirStays = 8971;
constexpr int TextsNoNumber = 8972;
constexpr int EditOnlyDive = 8973;
constexpr int EditNoCylinder = 8974;
constexpr int EditCylinderInLitres = 8975;
constexpr int EditNoLoop = 8976;

// What the check says of a gas
constexpr int GasNameTellsOther = 8977;

}  // namespace tav::Text
