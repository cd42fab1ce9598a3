// The printer's commands, one member function each.
#ifndef QUILON_COMMANDS_ONLINE_FDEV_H_
#define QUILON_COMMANDS_ONLINE_FDEV_H_

#include <cstdint>
#include <span>
#include <string_view>

#include "protocol/base_fdev.h"
#include "quilon/records.h"

namespace quilon {

class OnlineFDev final : public BaseFDev {
 public:
  using BaseFDev::BaseFDev;

  // --- What the printer tells of itself (info_commands.cc) ------------------

  int32_t SendDeviceInfo();
  int32_t ReadDeviceInfo(PrinterVersion* record);
  // Says which totals SendIdentity and SendTotals ask for.
  int32_t SetTotalsMode(const SingleNumber& record);
  int32_t SendIdentity();
  int32_t SendTotals();
  // Reads the answer to SendIdentity and to SendTotals.
  int32_t ReadIdentity(Identity* record);
  int32_t SendClock();
  int32_t ReadClock(SixNumbers* record);
  int32_t SendPort();
  int32_t ReadPort(PortInfo* record);
  int32_t SendMemory();
  int32_t ReadMemory(MemoryInfo* record);
  int32_t SendLog(const SingleNumber& record);
  int32_t ReadLog(SingleNumber* record);
  int32_t SendProc();
  int32_t ReadProc(ProcInfo* record);

  // --- Information blocks (info_blocks.cc) ----------------------------------

  int32_t SendInfoBlock(const SingleNumber& record);
  int32_t ReadInfo43(InfoBlock43* record);
  int32_t ReadInfo53(InfoBlock53* record);
  int32_t ReadInfo54(InfoBlock54* record);
  int32_t ReadInfo55(InfoBlock55* record);
  int32_t ReadInfo56(InfoBlock56* record);
  int32_t ReadInfoNumber(SingleNumber* record);
  int32_t ReadInfo58(SixNumbers* record);
  int32_t ReadInfo60(InfoBlock60* record);
  int32_t ReadInfo61(InfoBlock61* record);
  int32_t ReadInfo62(SevenNumbers* record);
  int32_t ReadInfo64(InfoBlock64* record);

  // --- Configuration (config_commands.cc) -----------------------------------

  int32_t SendDollarC(const DollarC& record);
  int32_t SendDollarP(const DollarP& record);
  int32_t SendDollarCapitalP(const DollarCapitalP& record);
  int32_t SendCaretC(const NumberAndText& record);
  int32_t SendDollarZ(const SingleText& record);
  int32_t SendDollarO10(const TwoTexts& record);
  int32_t SendDollarO11(const TwoNumbers& record);
  int32_t SendDollarO12();
  int32_t SetSerw(const NumberAndText& record);
  int32_t SendSerw(const SingleNumber& record);
  int32_t ReadSerw(NumberAndText* record);
  int32_t SetUsb(const UsbSettings& record);
  int32_t SendUsb();
  int32_t ReadUsb(UsbSettings* record);
  int32_t SetCert(const CertSettings& record);
  int32_t SetEmf(const EmfSettings& record);
  int32_t SendEmf();
  int32_t ReadEmf(EmfSettings* record);
  int32_t SetEpng(const ThreeNumbers& record);
  int32_t SendEpng();
  int32_t ReadEpng(ThreeNumbers* record);

  // --- EPAR parameter sets (epar_commands.cc) -------------------------------

  int32_t SetEparCommon(const EparSet& record);
  int32_t SetEpar(const EparSet& record);
  int32_t SendEpar(EparSet* record);
  int32_t ReadEpar(EparSet* record);

  // --- Reports and other data that the printer keeps (report_commands.cc) ---

  int32_t ReadHashX(HashX* record);
  int32_t SendPmi(const PmiCommand& record);
  int32_t ReadPmd(PmdAnswer* record);
  int32_t SendCaretB1(const SevenTexts& record);
  int32_t SendCaretB0(const NumberAndSevenTexts& record);
  int32_t SendQuestionE();
  int32_t ReadQuestionE(TwoNumbers* record);
  int32_t SendDollarG(const TwoTexts& record);
  int32_t ReadDollarG(NumberAndText* record);
  int32_t SendDollarM();
  int32_t SendCaretT12();
  int32_t ReadCaretT(FiveTexts* record);
  int32_t SendHashB(const NumberAndFourTexts& record);
  int32_t SendHashL(const SingleNumber& record);
  int32_t SendExclamationE(const ExclamationE& record);
  int32_t ReadExclamationE(ExclamationE* record);
  int32_t SendEdb(const SixNumbers& record);
  int32_t ReadEdb(SixNumbers* record);
  int32_t SendExclamationEdb(const SingleNumber& record);

  // --- Drawer, display, packets with "#Z" (display_commands.cc) -------------

  int32_t OpenDrawer();
  int32_t Display(const DisplayText& record);
  int32_t SendExclamationD(const DisplayText& record);
  int32_t SendHashE(const HashE& record);
  int32_t ReadHashZ(HashE* record);

  // --- The logo (logo_commands.cc) ------------------------------------------

  int32_t SendLogoFrame1(const Logo& record);
  int32_t SendLogoFrame10(const Logo& record);
  // Return 0 when they succeeded.
  int32_t SendLogo(const Logo& record);
  int32_t ReadLogo(Logo* record);
  int32_t LogoChecksum(Logo* record);

  // --- Files (file_commands.cc) ---------------------------------------------

  // Returns 0 when the printer has the whole file, else -1.
  int32_t SendFile(const FileTransfer& record);
  int32_t SendEmptyFile(int32_t continued, std::string_view name);

  // --- Commands of the application's own (raw_commands.cc) ------------------

  int32_t SendRaw(const RawCommand& record);
  int32_t ReadRaw(RawAnswer* record);

  // --- Second series (second_series_commands.cc) ----------------------------

  int32_t SendHashR(const HashR& record);
  int32_t SendHashK(const HashK& record);
  int32_t SendHashOTexts(const HashO& record);
  int32_t SendHashOFields(const HashO& record);
  int32_t SendDollarOTexts(const DollarOTexts& record);
  int32_t SendDollarONumbers(const DollarONumbers& record);
  int32_t SendDollarO3();
  int32_t SendHashT(const HashT& record);
  int32_t SendPr(const PrCommand& record);
  int32_t SendPmr(const PmrCommand& record);
  int32_t SendHashI(const HashAmount& record);
  int32_t SendHashD(const HashAmount& record);
  int32_t SendHashP(const HashP& record);
  int32_t SendHashQ(const HashP& record);
  int32_t SendHashP1();
  int32_t ReadHashP(HashPAnswer* record);
  int32_t SendDollarZ28(const SingleNumber& record);

  // --- Long frames (long_frame_commands.cc) ---------------------------------

  int32_t SendHashF(const HashF& record);
  int32_t SendHashM(const HashM& record);

  // --- Non-fiscal printouts (nonfiscal_commands.cc) -------------------------

  int32_t SendNonFiscalBegin(const NonFiscalBegin& record);
  int32_t SendNonFiscalLine(const NonFiscalLine& record);
  int32_t SendNonFiscalEnd(const NonFiscalEnd& record);

  // --- Fiscal documents (document_commands.cc) ------------------------------

  // These and the handlers below return whether the frame was written: more
  // than 0 when it was, else 0.
  int32_t SendDocumentHeader(const DocumentHeader& record);
  int32_t SendDocumentHeader219(const DocumentHeader& record);
  int32_t SendDocumentLine(const DocumentLine& record);
  int32_t SendDocumentLineP(const DocumentLineP& record);
  int32_t SendDocumentEnd(const DocumentEnd& record);
  int32_t SendDocumentShortEnd(const DocumentShortEnd& record);
  int32_t SendPayment6(const Payment& record);
  int32_t SendPayment7(const Payment& record);
  int32_t SendPayment10(const Payment& record);
  int32_t SendPayment11(const Payment& record);
  int32_t SendDollarN(const DollarN& record);
  int32_t SendDollarCapitalL(const DollarCapitalL& record);
  int32_t SendDollarCapitalY(const DollarCapitalY& record);
  int32_t SendDollarB(const DollarB& record);
  int32_t SendAtZ(const AtZ& record);
  int32_t SendAtE(const AtE& record);

  // --- Closing a document with its payments (settlement_commands.cc) --------

  int32_t SendDollarX(const DollarX& record);
  int32_t SendDollarY(const DollarY& record);

  // --- Documents with a buyer (buyer_document_commands.cc) ------------------

  int32_t SendBuyerHeader(const BuyerHeader& record);
  int32_t SendBuyerEnd(const BuyerEnd& record);
  int32_t SendAtC(const AtC& record);

 private:
  int32_t ReadNumberedEdb(SixNumbers* record);
  FrameBuilder FileFrame(int32_t continued, int64_t size, std::string_view name,
                         std::span<const uint8_t> block);
  int32_t SendHashO(FrameBuilder& frame, const HashO& record);
  int32_t SendHashAmount(std::string_view mnemonic, const HashAmount& record);
  int32_t SendDocument(const FrameBuilder& frame);
  int32_t SendHeader(int32_t first_parameter, const DocumentHeader& record);
  int32_t SendPayment(std::string_view mnemonic, const Payment& record);
};

}  // namespace quilon

#endif  // QUILON_COMMANDS_ONLINE_FDEV_H_
