// A plugin of clang-tidy: its rules look at the project's declarations only.
//
// They would search every declaration of every header, which for a test that
// includes GoogleTest takes four times as long, and then drop what they found
// in the system's headers. The static analyzer never looked there.
#include <clang/AST/ASTConsumer.h>
#include <clang/AST/ASTContext.h>
#include <clang/AST/Decl.h>
#include <clang/Basic/SourceManager.h>
#include <clang/Frontend/CompilerInstance.h>
#include <clang/Frontend/FrontendAction.h>
#include <clang/Frontend/FrontendPluginRegistry.h>

#include <memory>
#include <string>
#include <vector>

namespace {

class ScopeConsumer : public clang::ASTConsumer {
 public:
  void HandleTranslationUnit(clang::ASTContext& context) override {
    const clang::SourceManager& sources = context.getSourceManager();
    std::vector<clang::Decl*> own;
    for (clang::Decl* declaration : context.getTranslationUnitDecl()->decls()) {
      if (!sources.isInSystemHeader(declaration->getLocation())) {
        own.push_back(declaration);
      }
    }
    context.setTraversalScope(own);
  }
};

class ScopeAction : public clang::PluginASTAction {
 protected:
  std::unique_ptr<clang::ASTConsumer> CreateASTConsumer(
      clang::CompilerInstance& /*compiler*/,
      llvm::StringRef /*file*/) override {
    return std::make_unique<ScopeConsumer>();
  }

  bool ParseArgs(const clang::CompilerInstance& /*compiler*/,
                 const std::vector<std::string>& /*arguments*/) override {
    return true;
  }

  // Before clang-tidy itself.
  ActionType getActionType() override { return AddBeforeMainAction; }
};

const clang::FrontendPluginRegistry::Add<ScopeAction> kRegistration(
    "tidy-scope", "looks at the project's declarations only");

}  // namespace
