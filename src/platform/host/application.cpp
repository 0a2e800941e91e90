#include "platform/host/application.h"

#include <algorithm>
#include <exception>
#include <new>
#include <utility>

namespace platform {

namespace {

/// Steps that are all done, whatever one of them raises; the first such failure goes on when they are through.
class AllSteps {
 public:
  template <class Step>
  void operator()(Step&& step) {
    try {
      step();
    } catch (...) {
      if (!failure_) failure_ = std::current_exception();
    }
  }
  void End() const {
    if (failure_) std::rethrow_exception(failure_);
  }

 private:
  std::exception_ptr failure_;
};

}  // namespace

Application::Application(ApplicationParts parts) : parts_(std::move(parts)) {
  threadId_ = parts_.threadId.value_or(parts_.system->ProcessNumber());
  parts_.engine->OnWait([this] { parts_.frontEnd->ServePainting(); });
}

Application::~Application() = default;

Form& Application::FormAt(int index) const {
  if (index < 0 || index >= FormCount()) throw error::SubscriptOutOfRange();
  return *forms_[static_cast<std::size_t>(index)];
}

Form* Application::ActiveForm() const noexcept {
  for (auto form = modal_.rbegin(); form != modal_.rend(); ++form)
    if ((*form)->visible_) return *form;
  return nullptr;
}

void Application::Load(Form& form) {
  if (form.loaded_ || form.loading_ || form.unloading_) return;
  form.loading_ = true;
  forms_.push_back(&form);
  try {
    parts_.frontEnd->Loaded(form);
    form.loaded_ = true;
    try {
      form.Form_Load();
    } catch (const Error& error) {
      Unhandled(error);
    }
  } catch (...) {
    // A screen without its window, or half set up, is none.
    form.loaded_ = form.loading_ = false;
    std::erase(forms_, &form);
    AllSteps()([&] { parts_.frontEnd->Unloaded(form); });
    throw;
  }
  form.loading_ = false;
}

void Application::Show(Form& form) {
  modal_.push_back(&form);
  try {
    Load(form);
    if (form.loaded_) {
      form.visible_ = true;
      parts_.frontEnd->Shown(form);
      Activate(form);
      if (form.visible_) parts_.frontEnd->RunModal(form, [&form] { return !form.visible_; });
    }
  } catch (...) {
    // It has left the frames of all handlers of this screen, so the screen goes with it.
    AllSteps()([&] { Unload(form); });
    std::erase(modal_, &form);
    throw;
  }
  std::erase(modal_, &form);
  // The screen below comes forward, unless it is hidden by now or is not up yet: then nothing has become the active one.
  if (!modal_.empty() && modal_.back()->visible_) Activate(*modal_.back());
  Purge();
}

void Application::Activate(Form& form) {
  Act(form, [&form] {
    form.Form_Activate();
    // A screen that has put the focus nowhere begins at its first control.
    if (form.visible_ && !form.focus_) form.MoveFocus(form.NextInTabOrder(nullptr));
  });
}

void Application::Hide(Form& form) {
  if (!form.visible_) return;
  form.visible_ = false;
  parts_.frontEnd->Hidden(form);
}

void Application::Unload(Form& form) {
  if (!form.loaded_ || form.unloading_) return;
  form.unloading_ = true;
  AllSteps step;
  const auto told = [&](auto&& body) {
    step([&] {
      try {
        body();
      } catch (const Error& error) {
        Unhandled(error);
      }
    });
  };
  // What the user has typed into a list is written before the screen goes; what is refused goes with it.
  for (Control* control : form.controls_) {
    told([&] {
      if (!control->TakeOpenCell()) control->DropPending();
    });
  }
  told([&] { form.Form_Unload(); });
  step([&] { Hide(form); });
  form.loaded_ = false;
  std::erase(forms_, &form);
  step([&] { parts_.frontEnd->Unloaded(form); });
  form.unloading_ = false;
  form.closePending_ = false;
  step.End();
}

void Application::Bury(std::unique_ptr<Form> form) {
  if (!form) return;
  buried_.push_back(std::move(form));
}

void Application::Purge() {
  if (depth_ > 0) return;
  std::erase_if(buried_, [this](const std::unique_ptr<Form>& form) {
    const bool inUse =
        form->handlers_ > 0 || form->loaded_ || form->unloading_ || std::find(modal_.begin(), modal_.end(), form.get()) != modal_.end();
    return !inUse;
  });
}

void Application::DoEvents() { parts_.frontEnd->DoEvents(); }

int Application::MsgBox(const std::string& text, int style, const std::string& title) {
  return parts_.frontEnd->MessageBox(text, style, title);
}

void Application::MousePointer(int pointer) {
  pointer_ = pointer;
  parts_.frontEnd->Pointer(pointer);
}

void Application::Act(Form& form, const std::function<void()>& body) {
  struct Running {
    Application& app;
    Form& form;
    bool lossToldAround;
    Running(Application& application, Form& actedOn)
        : app(application), form(actedOn), lossToldAround(std::exchange(app.lossTold_, false)) {
      ++app.depth_;
      ++form.handlers_;
    }
    ~Running() {
      --form.handlers_;
      --app.depth_;
      app.lossTold_ = lossToldAround;
    }
  };
  {
    const Running running(*this, form);
    const int pointerBefore = pointer_;
    std::vector<Control*> openNow;
    for (Control* control : form.controls_)
      if (control->ReopensAfterFailure() && control->Enabled()) openNow.push_back(control);
    // The handler that set the pointer and disabled the toolbar can't undo it any more.
    const auto putBack = [&] {
      if (form.loaded_)
        for (Control* control : openNow) control->Enabled(true);
      if (pointer_ != pointerBefore) MousePointer(pointerBefore);
    };
    try {
      body();
    } catch (const Error& error) {
      putBack();
      Unhandled(error);
    } catch (const std::bad_alloc&) {
      putBack();
      Unhandled(error::OutOfMemory());
    } catch (...) {
      putBack();
      throw;
    }
  }
  if (form.closePending_ && form.handlers_ == 0) {
    form.closePending_ = false;
    Close(form);
    return;
  }
  Purge();
}

bool Application::IsNews(const Error& error) {
  return !error.OutOfReach() || depth_ == 0 || !std::exchange(lossTold_, true);
}

void Application::Unhandled(const Error& error) {
  Log(LogLevel::Failure, "no handler: " + std::to_string(error.Number()) + " " + error.Description());
  if (OnUnhandled) OnUnhandled(error);
  if (!IsNews(error)) return;
  MsgBox(error.Description(), box::Exclamation, parts_.title);
}

void Application::Close(Form& form) {
  if (form.handlers_ > 0) {
    form.closePending_ = true;
    return;
  }
  Act(form, [&] { Unload(form); });
}

void Application::Log(LogLevel level, std::string_view text) const noexcept {
  if (parts_.diagnosticLog && level >= parts_.diagnosticLog->Lowest()) parts_.diagnosticLog->Write(level, text);
}

void Application::Refreshed(const Control& dataControl) {
  if (OnRefreshed) OnRefreshed(dataControl);
}

void Application::Changed(Form& form, Control* control, Aspect aspect) {
  if (form.loaded_ || form.loading_) parts_.frontEnd->Changed(form, control, aspect);
}

}  // namespace platform
