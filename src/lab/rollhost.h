// A place in the roll cycle for the laboratory: after the scripts of each roll, as the last thing before the next.
#pragma once

#include <string>

#include "table/crapcnst.h"

namespace tarnwick::lab {

/// Stands before the table's scripts while it lives. `t` must outlive it.
class RollHost : public ScriptHost {
  public:
    explicit RollHost(Table& t) : T(t), Behind(t.Scripts) { t.Scripts = this; }
    ~RollHost() override { T.Scripts = Behind; }
    RollHost(const RollHost&) = delete;
    RollHost& operator=(const RollHost&) = delete;

    bool CompileAll(Table& t) override { return Behind == nullptr || Behind->CompileAll(t); }
    void RunAll(Table& t) override {
        if (Behind != nullptr) Behind->RunAll(t);
        AfterRoll();
    }
    std::string NameRefusal(const Table& t, const std::string& name, int exceptPosition) override {
        return Behind != nullptr ? Behind->NameRefusal(t, name, exceptPosition) : std::string();
    }
    void SwapPositions(Table& t, int p, int q) override {
        if (Behind != nullptr) Behind->SwapPositions(t, p, q);
    }
    void NameChanged(Table& t) override {
        if (Behind != nullptr) Behind->NameChanged(t);
    }

  protected:
    virtual void AfterRoll() = 0;

    Table& T;

  private:
    ScriptHost* Behind;
};

}  // namespace tarnwick::lab
