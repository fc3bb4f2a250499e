#include "framework/CmdTarget.h"

bool CCmdTarget::OnCmdMsg(int id, CCmdUI *ui) {
    auto it = handlers_.upper_bound(id);
    if (it == handlers_.begin()) return false;
    --it;
    const Handler &handler = it->second;
    if (id > handler.last) return false;
    if (!ui) {
        const RunId run = handler.run;  // the command may change the map
        run(id);
    } else if (handler.update) {
        handler.update(*ui);
    }
    return true;
}

void CCmdTarget::OnCommand(int id, Run run, Update update) {
    handlers_[id] = {id, [run = std::move(run)](int) { run(); }, std::move(update)};
}

void CCmdTarget::OnCommandRange(int first, int last, RunId run, Update update) {
    handlers_[first] = {last, std::move(run), std::move(update)};
}

CCmdUI QueryCommand(CCmdTarget &target, int id) {
    CCmdUI ui(id);
    if (!target.OnCmdMsg(id, &ui)) ui.enabled = false;
    return ui;
}

bool SendCommand(CCmdTarget &target, int id) {
    return QueryCommand(target, id).enabled && target.OnCmdMsg(id, nullptr);
}
