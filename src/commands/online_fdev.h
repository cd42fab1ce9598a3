// The printer's commands, one member function each.
#ifndef QUILON_COMMANDS_ONLINE_FDEV_H_
#define QUILON_COMMANDS_ONLINE_FDEV_H_

#include <cstdint>

#include "protocol/base_fdev.h"
#include "quilon/records.h"

namespace quilon {

class OnlineFDev final : public BaseFDev {
 public:
  using BaseFDev::BaseFDev;

  // --- What the printer tells of itself (info_commands.cc) ------------------

  int32_t SendDeviceInfo();
  int32_t ReadDeviceInfo(PrinterVersion* record);
  // The totals mode says which totals the identity and the totals tell.
  int32_t SetTotalsMode(const SingleNumber& record);
  int32_t SendIdentity();
  int32_t SendTotals();
  // Reads the answer to SendIdentity and to SendTotals.
  int32_t ReadIdentity(Identity* record);
  int32_t SendPort();
  int32_t ReadPort(PortInfo* record);
  int32_t SendMemory();
  int32_t ReadMemory(MemoryInfo* record);

  // --- Second series (second_series_commands.cc) ----------------------------

  int32_t SendHashR(const HashR& record);
  int32_t SendHashK(const HashK& record);
  int32_t SendHashOTexts(const HashO& record);
  int32_t SendHashOFields(const HashO& record);
  int32_t SendDollarOTexts(const DollarOTexts& record);
  int32_t SendDollarONumbers(const DollarONumbers& record);
  int32_t SendDollarO3();
  int32_t SendHashT(const HashT& record);
  int32_t SendAtPr(const AtPr& record);
  int32_t SendAtPmr(const AtPmr& record);
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

  // Return whether the frame was written: not 0 when it was.
  int32_t SendDocumentHeader(const DocumentHeader& record);
  int32_t SendDocumentLine(const DocumentLine& record);
  int32_t SendDocumentEnd(const DocumentEnd& record);
  int32_t SendDocumentShortEnd(const DocumentShortEnd& record);
  int32_t SendPayment6(const Payment& record);
  int32_t SendPayment7(const Payment& record);
  int32_t SendPayment10(const Payment& record);
  int32_t SendPayment11(const Payment& record);

 private:
  int32_t SendHashO(FrameBuilder& frame, const HashO& record);
  int32_t SendHashAmount(std::string_view mnemonic, const HashAmount& record);
  int32_t SendDocument(const FrameBuilder& frame);
  int32_t SendPayment(std::string_view mnemonic, const Payment& record);
};

}  // namespace quilon

#endif  // QUILON_COMMANDS_ONLINE_FDEV_H_
