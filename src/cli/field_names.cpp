#include "cli/field_names.h"

#include <algorithm>

#include "meter/text.h"

namespace counter {

namespace {

struct ControlRow {
    Field Which;
    std::string_view Name;
    std::string_view Second = {};  // of two options: the one of the second entry
};

using F = Field;

// clang-format off
constexpr ControlRow kControls[] = {
    {F::Mode, "cboMode"},                {F::Function, "cboFunction"},         {F::InputOption, "cboInOpt"},
    {F::RelayOption, "cboRlyOpt"},       {F::CommOption, "cboComOpt"},         {F::AnalogOption, "cboAnaOpt"},
    {F::GateTime, "txtGateTime"},        {F::TimeOut, "txtTimeOut"},           {F::Preset, "txtTimeOut"},
    {F::PulsesPerRev, "txtPulses"},      {F::CutoffValue, "txtPulses"},        {F::CutoffEnable, "cboCutoffEnable"},
    {F::PowerOnTotal, "cboPwrOnTot"},    {F::DisplayType, "cboDType"},         {F::DisplayFilter, "cboDVal"},
    {F::LeadingZeros, "cboLeadZ"},       {F::DisplayItem, "cboDspyN"},         {F::PeakKeyAction, "cboAction"},
    {F::ControlInputs, "cboExtAB"},      {F::Calibration, "txtCal"},

    {F::DecimalPoint1, "cboDecPt1"},     {F::DecimalPoint2, "cboDecPt2"},      {F::Resolution, "cboResoln"},
    {F::TriggerSlopeA, "cboTrigSlpA"},   {F::TriggerSlopeB, "cboTrigSlpB"},    {F::SquareRoot, "chkSqRt"},
    {F::Read0In, "txtRd0In"},            {F::BatchCount, "cboBatCount"},       {F::BatchTotalReset, "cboBatReset"},
    {F::BatchItem2, "cboBatItm2"},       {F::BatchStart, "cboBatStart"},
    {F::Group1Form, "optScale1", "optCoord1"},                                 {F::Group2Form, "optScale2", "optCoord2"},
    {F::Scale1, "txtScale1"},            {F::Multiplier1, "cboMult1"},         {F::Offset1, "txtOffset1"},
    {F::LowIn1, "txtLoIn1"},             {F::LowRead1, "txtLoRd1"},            {F::HighIn1, "txtHiIn1"},
    {F::HighRead1, "txtHiRd1"},
    {F::Scale2, "txtScale2"},            {F::Multiplier2, "cboMult2"},         {F::Offset2, "txtOffset2"},
    {F::LowIn2, "txtLoIn2"},             {F::LowRead2, "txtLoRd2"},            {F::HighIn2, "txtHiIn2"},
    {F::HighRead2, "txtHiRd2"},

    {F::FilterTimeConstant, "cboTimConst"}, {F::FilterThreshold, "cboThresh"}, {F::PeakValleyFilter, "cboPeakVal"},
    {F::FilterType, "cboFType"},

    {F::Alarm1Source, "cboAlmSource[1]"}, {F::Alarm2Source, "cboAlmSource[2]"}, {F::Alarm3Source, "cboAlmSource[3]"}, {F::Alarm4Source, "cboAlmSource[4]"},
    {F::Alarm1State, "cboState[1]"},      {F::Alarm2State, "cboState[2]"},      {F::Alarm3State, "cboState[3]"},      {F::Alarm4State, "cboState[4]"},
    {F::Alarm1Type, "cboAlmType[1]"},     {F::Alarm2Type, "cboAlmType[2]"},     {F::Alarm3Type, "cboAlmType[3]"},     {F::Alarm4Type, "cboAlmType[4]"},
    {F::Relay1State, "cboRlyState[1]"},   {F::Relay2State, "cboRlyState[2]"},   {F::Relay3State, "cboRlyState[3]"},   {F::Relay4State, "cboRlyState[4]"},
    {F::Setpoint1, "txtSetpt[1]"},        {F::Setpoint2, "txtSetpt[2]"},        {F::Setpoint3, "txtSetpt[3]"},        {F::Setpoint4, "txtSetpt[4]"},
    {F::Deviation1Type, "cboDevTyp[1]"},  {F::Deviation2Type, "cboDevTyp[2]"},  {F::Deviation3Type, "cboDevTyp[3]"},  {F::Deviation4Type, "cboDevTyp[4]"},
    {F::Deviation1, "txtDev[1]"},         {F::Deviation2, "txtDev[2]"},         {F::Deviation3, "txtDev[3]"},         {F::Deviation4, "txtDev[4]"},
    {F::NumRdgsAlarms12, "cboNumRdgsAlms[0]"},                                  {F::NumRdgsAlarms34, "cboNumRdgsAlms[1]"},

    {F::SerialProtocol, "cboProtocol"},  {F::BaudRate, "cboBaudRate"},         {F::Parity, "cboParity"},
    {F::Address, "cboAddress"},          {F::ModbusAddress, "txtMBAddr"},      {F::ModbusTimeout, "cboMBTimeout"},
    {F::Duplex, "cboDuplex"},            {F::OutputItems, "cboOutItems"},      {F::OutputFilter, "cboOutVal"},
    {F::OutputRate, "cboOutRate"},       {F::OutputMode, "cboSerMode"},        {F::IncludeAlarmData, "chkAlmData"},
    {F::IncludeLf, "chkLF"},             {F::Cr, "cboCR"},                     {F::RtsType, "cboRTS"},
    {F::RecognitionChar, "cboRecogChr"}, {F::CustomRecognition, "txtCusRecog"}, {F::TransmissionChars, "cboTranChars"},
    {F::SpecialStartChar, "txtTranStart"}, {F::SpecialStopChar, "txtTranStop"}, {F::StartChar, "txtStartChr"},
    {F::StopChar, "txtStopChr"},         {F::SkipNo, "txtSkip"},               {F::ShowNo, "txtShow"},

    {F::AnalogSource, "cboSource"},      {F::AnalogRange, "cboRange"},         {F::AnalogLo, "txtAnaLo"},       {F::AnalogHi, "txtAnaHi"},
    {F::AnalogSource2, "cboSource2"},    {F::AnalogRange2, "cboRange2"},       {F::Analog2Lo, "txtAnaLo2"},     {F::Analog2Hi, "txtAnaHi2"},

    {F::Lockout0, "chkLock[0]"},   {F::Lockout1, "chkLock[1]"},   {F::Lockout2, "chkLock[2]"},   {F::Lockout3, "chkLock[3]"},
    {F::Lockout4, "chkLock[4]"},   {F::Lockout5, "chkLock[5]"},   {F::Lockout6, "chkLock[6]"},   {F::Lockout7, "chkLock[7]"},
    {F::Lockout8, "chkLock[8]"},   {F::Lockout9, "chkLock[9]"},   {F::Lockout10, "chkLock[10]"}, {F::Lockout11, "chkLock[11]"},
    {F::Lockout12, "chkLock[12]"}, {F::Lockout13, "chkLock[13]"}, {F::Lockout14, "chkLock[14]"}, {F::Lockout15, "chkLock[15]"},
};
// clang-format on

}  // namespace

std::optional<Field> FieldNamed(std::string_view name) {
    const std::string wanted = SmallLetters(Trimmed(name));
    for (const FieldRow& row : FieldTable()) {
        if (SmallLetters(Trimmed(row.Name)) == wanted) return row.Handle;
    }
    return std::nullopt;
}

std::vector<std::string> FieldNames() {
    std::vector<std::string> names;
    for (const FieldRow& row : FieldTable()) names.emplace_back(Trimmed(row.Name));
    return names;
}

std::string_view ControlOfField(Field field, int entry) {
    const auto* found = std::find_if(std::begin(kControls), std::end(kControls),
                                     [field](const ControlRow& row) { return row.Which == field; });
    if (found == std::end(kControls)) return {};
    return entry == 1 && !found->Second.empty() ? found->Second : found->Name;
}

std::vector<Field> FieldsOfControl(std::string_view fullName) {
    const std::string_view name = fullName.substr(0, fullName.find('['));
    std::vector<Field> fields;
    for (const ControlRow& row : kControls) {
        if (row.Name == fullName || row.Name == name || row.Second == name) fields.push_back(row.Which);
    }
    return fields;
}

}  // namespace counter
