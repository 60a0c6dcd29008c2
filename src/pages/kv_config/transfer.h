#pragma once

#include "pages/kv_config/models.h"
#include "pages/kv_config/spelling.h"
#include "transfer/download.h"
#include "transfer/upload.h"

namespace korva {

class KvConfig;

// What the page of family First does its own way in upload, check and download. The page outlives all of it.

class KvConfigForm final : public RowForm {
 public:
  KvConfigForm(const KvConfig& page, const KvConfigSpelling& spelling);
  [[nodiscard]] std::optional<CodeTable> CodesOf(int item) const override;
  [[nodiscard]] bool WillBeSpelt(int row) const override;

 private:
  [[nodiscard]] std::optional<CodeTable> RangeCodes() const;

  const KvConfig& page_;
  const KvConfigSpelling& spelling_;
};

class KvConfigUpload final : public UploadSteps {
 public:
  KvConfigUpload(KvConfig& page, KvConfigSpelling& spelling);
  void AfterAllRead() override { spelling_.FollowSet(); }

 private:
  KvConfigSpelling& spelling_;
};

class KvConfigCheck final : public CheckSteps {
 public:
  explicit KvConfigCheck(KvConfig& page);
  bool CheckValues() override;
  [[nodiscard]] std::optional<FieldRange> RangeOf(int row) const override;

 private:
  bool CheckModel();

  KvConfig& page_;
  FieldChecks fields_;
};

class KvConfigDownload final : public DownloadSteps {
 public:
  KvConfigDownload(KvConfig& page, KvConfigSpelling& spelling);
  bool BeginWriting() override;
  [[nodiscard]] String FinalData(const WriteEntry& entry) const override;

 private:
  KvConfig& page_;
  KvConfigSpelling& spelling_;
};

}  // namespace korva
