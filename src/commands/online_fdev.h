// The printer's commands, one member function each.
#ifndef QUILON_COMMANDS_ONLINE_FDEV_H_
#define QUILON_COMMANDS_ONLINE_FDEV_H_

#include <cstdint>
#include <span>
#include <string_view>

#include "quilon/records.h"
#include "src/protocol/base_fdev.h"

namespace quilon {

class OnlineFDev final : public BaseFDev {
 public:
  using BaseFDev::BaseFDev;

  // --- What the printer tells of itself (info_commands.cc) ------------------

  bool SendDeviceInfo();
  bool ReadDeviceInfo(PrinterVersion* record);
  // Says which totals SendIdentity and SendTotals ask for.
  bool SetTotalsMode(const SingleNumber& record);
  bool SendIdentity();
  bool SendTotals();
  // Reads the answer to SendIdentity and to SendTotals.
  bool ReadIdentity(Identity* record);
  bool SendClock();
  bool ReadClock(SixNumbers* record);
  bool SendPort();
  bool ReadPort(PortInfo* record);
  bool SendMemory();
  bool ReadMemory(MemoryInfo* record);
  bool SendLog(const SingleNumber& record);
  bool ReadLog(SingleNumber* record);
  bool SendProc();
  bool ReadProc(ProcInfo* record);

  // --- Information blocks (info_blocks.cc) ----------------------------------

  bool SendInfoBlock(const SingleNumber& record);
  bool ReadInfo43(InfoBlock43* record);
  bool ReadInfo53(InfoBlock53* record);
  bool ReadInfo54(InfoBlock54* record);
  bool ReadInfo55(InfoBlock55* record);
  bool ReadInfo56(InfoBlock56* record);
  bool ReadInfoNumber(SingleNumber* record);
  bool ReadInfo58(SixNumbers* record);
  bool ReadInfo60(InfoBlock60* record);
  bool ReadInfo61(InfoBlock61* record);
  bool ReadInfo62(SevenNumbers* record);
  bool ReadInfo64(InfoBlock64* record);

  // --- Configuration (config_commands.cc) -----------------------------------

  bool SendDollarC(const DollarC& record);
  bool SendDollarP(const DollarP& record);
  bool SendDollarCapitalP(const DollarCapitalP& record);
  bool SendCaretC(const NumberAndText& record);
  bool SendDollarZ(const SingleText& record);
  bool SendDollarO10(const TwoTexts& record);
  bool SendDollarO11(const TwoNumbers& record);
  bool SendDollarO12();
  bool SetSerw(const NumberAndText& record);
  bool SendSerw(const SingleNumber& record);
  bool ReadSerw(NumberAndText* record);
  bool SetUsb(const UsbSettings& record);
  bool SendUsb();
  bool ReadUsb(UsbSettings* record);
  bool SetCert(const CertSettings& record);
  bool SetEmf(const EmfSettings& record);
  bool SendEmf();
  bool ReadEmf(EmfSettings* record);
  bool SetEpng(const ThreeNumbers& record);
  bool SendEpng();
  bool ReadEpng(ThreeNumbers* record);

  // --- EPAR parameter sets (epar_commands.cc) -------------------------------

  bool SetEparCommon(const EparSet& record);
  bool SetEpar(const EparSet& record);
  bool SendEpar(EparSet* record);
  bool ReadEpar(EparSet* record);

  // --- Reports and other data that the printer keeps (report_commands.cc) ---

  bool ReadHashX(HashX* record);
  bool SendPmi(const PmiCommand& record);
  bool ReadPmd(PmdAnswer* record);
  bool SendCaretB1(const SevenTexts& record);
  bool SendCaretB0(const NumberAndSevenTexts& record);
  bool SendQuestionE();
  bool ReadQuestionE(TwoNumbers* record);
  bool SendDollarG(const TwoTexts& record);
  bool ReadDollarG(NumberAndText* record);
  bool SendDollarM();
  bool SendCaretT12();
  bool ReadCaretT(FiveTexts* record);
  bool SendHashB(const NumberAndFourTexts& record);
  bool SendHashL(const SingleNumber& record);
  bool SendExclamationE(const ExclamationE& record);
  bool ReadExclamationE(ExclamationE* record);
  bool SendEdb(const SixNumbers& record);
  bool ReadEdb(SixNumbers* record);
  bool SendExclamationEdb(const SingleNumber& record);

  // --- Drawer, display, packets with "#Z" (display_commands.cc) -------------

  bool OpenDrawer();
  bool Display(const DisplayText& record);
  bool SendExclamationD(const DisplayText& record);
  bool SendHashE(const HashE& record);
  bool ReadHashZ(HashE* record);

  // --- The logo (logo_commands.cc) ------------------------------------------

  bool SendLogoFrame1(const Logo& record);
  bool SendLogoFrame10(const Logo& record);
  bool SendLogo(const Logo& record);
  bool ReadLogo(Logo* record);
  bool LogoChecksum(Logo* record);

  // --- Files (file_commands.cc) ---------------------------------------------

  // Returns whether the printer has the whole file.
  bool SendFile(const FileTransfer& record);
  bool SendEmptyFile(int32_t continued, std::string_view name);

  // --- Commands of the application's own (raw_commands.cc) ------------------

  bool SendRaw(const RawCommand& record);
  bool ReadRaw(RawAnswer* record);

  // --- Second series (second_series_commands.cc) ----------------------------

  bool SendHashR(const HashR& record);
  bool SendHashK(const HashK& record);
  bool SendHashOTexts(const HashO& record);
  bool SendHashOFields(const HashO& record);
  bool SendDollarOTexts(const DollarOTexts& record);
  bool SendDollarONumbers(const DollarONumbers& record);
  bool SendDollarO3();
  bool SendHashT(const HashT& record);
  bool SendPr(const PrCommand& record);
  bool SendPmr(const PmrCommand& record);
  bool SendHashI(const HashAmount& record);
  bool SendHashD(const HashAmount& record);
  bool SendHashP(const HashP& record);
  bool SendHashQ(const HashP& record);
  bool SendHashP1();
  bool ReadHashP(HashPAnswer* record);
  bool SendDollarZ28(const SingleNumber& record);

  // --- Long frames (long_frame_commands.cc) ---------------------------------

  bool SendHashF(const HashF& record);
  bool SendHashM(const HashM& record);

  // --- Non-fiscal printouts (nonfiscal_commands.cc) -------------------------

  bool SendNonFiscalBegin(const NonFiscalBegin& record);
  bool SendNonFiscalLine(const NonFiscalLine& record);
  bool SendNonFiscalEnd(const NonFiscalEnd& record);

  // --- Fiscal documents (document_commands.cc) ------------------------------

  // These and the handlers below fail on a connection that never opened, too.
  bool SendDocumentHeader(const DocumentHeader& record);
  bool SendDocumentHeader219(const DocumentHeader& record);
  bool SendDocumentLine(const DocumentLine& record);
  bool SendDocumentLineP(const DocumentLineP& record);
  bool SendDocumentEnd(const DocumentEnd& record);
  bool SendDocumentShortEnd(const DocumentShortEnd& record);
  bool SendPayment6(const Payment& record);
  bool SendPayment7(const Payment& record);
  bool SendPayment10(const Payment& record);
  bool SendPayment11(const Payment& record);
  bool SendDollarN(const DollarN& record);
  bool SendDollarCapitalL(const DollarCapitalL& record);
  bool SendDollarCapitalY(const DollarCapitalY& record);
  bool SendDollarB(const DollarB& record);
  bool SendAtZ(const AtZ& record);
  bool SendAtE(const AtE& record);

  // --- Closing a document with its payments (settlement_commands.cc) --------

  bool SendDollarX(const DollarX& record);
  bool SendDollarY(const DollarY& record);

  // --- Documents with a buyer (buyer_document_commands.cc) ------------------

  bool SendBuyerHeader(const BuyerHeader& record);
  bool SendBuyerEnd(const BuyerEnd& record);
  bool SendAtC(const AtC& record);

 private:
  bool ReadNumberedEdb(SixNumbers* record);
  FrameBuilder FileFrame(int32_t continued, int64_t size, std::string_view name,
                         std::span<const uint8_t> block);
  bool SendHashO(FrameBuilder& frame, const HashO& record);
  bool SendHashAmount(std::string_view mnemonic, const HashAmount& record);
  bool SendHeader(int32_t first_parameter, const DocumentHeader& record);
  bool SendPayment(std::string_view mnemonic, const Payment& record);
};

}  // namespace quilon

#endif  // QUILON_COMMANDS_ONLINE_FDEV_H_
