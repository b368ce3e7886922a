// --- What is shown ------------------------------------------------------------------------------------------

const redrawAll = () => rivers.forEach(river => river.redraw());

function box(type, name, words, checked, change, sign) {
  const input = make("input", {type, name});
  input.checked = checked;
  input.addEventListener("change", () => change(input.checked));
  const label = make("label", {}, input);
  if (sign) label.append(sign);
  label.append(make("bdi", {}, words));
  return label;
}

function group(words, ...boxes) {
  return make("fieldset", {}, make("legend", {}, words), ...boxes);
}

function toggle(set, member, isIn) {
  isIn ? set.add(member) : set.delete(member);
}

function hideRun(run, isShown) {
  toggle(hidden, run, !isShown);
  all("svg.picture .run-" + run).forEach(element => isShown ? element.removeAttribute("display") : element.setAttribute("display", "none"));
  redrawAll();
}

function buildTools() {
  const tools = byId("tools");
  if (!tools) return;
  if (setup.runs.length > 1)
    tools.append(group("Runs", ...setup.runs.map((run, k) => box("checkbox", "run", run.name, true, on => hideRun(k, on), swatch(k)))));
  const loads = setup.series.some(series => series.kind !== "load");
  setup.series.forEach((series, k) => (series.kind !== "load" || !loads) && shownSeries.add(k));
  tools.append(group("Series", ...setup.series.map((series, k) =>
    box("checkbox", "series", series.title, shownSeries.has(k), on => { toggle(shownSeries, k, on); redrawAll(); }))));
  if (setup.series.some(series => series.other)) {
    const choose = which => () => { statistic = which; redrawAll(); };
    tools.append(group("Values", box("radio", "statistic", "judged statistic", true, choose("judged")), box("radio", "statistic", "mean", false, choose("mean"))));
  }
}

function buildChoice() {
  const place = byId("choose-sources"), choices = all(".choice");
  if (!place || choices.length < 2) return;
  const select = make("select", {}, ...choices.map((choice, k) => make("option", {value: k}, choice.dataset.choice)));
  const show = () => choices.forEach((choice, k) => { choice.hidden = k !== Number(select.value); });
  select.addEventListener("change", show);
  place.append(make("label", {class: "choose"}, "Determinand", select));
  show();
}

function whenNear(elements, act) {
  const watch = new IntersectionObserver(entries => {
    for (const entry of entries) {
      if (!entry.isIntersecting) continue;
      watch.unobserve(entry.target);
      act(entry.target);
    }
  }, {rootMargin: "800px"});
  elements.forEach(element => watch.observe(element));
}

all("table[id]").forEach(equipTable);
buildTools();
buildChoice();
all("#network svg.picture, #fit svg.picture").forEach(picture => picture.after(make("p", {class: "save"}, saveButton(picture))));
const sections = all(".river");
sections.forEach(section => rivers.push(new River(section)));
whenNear(sections, section => rivers[sections.indexOf(section)].build());
dark.addEventListener("change", redrawAll);
let resizing;
addEventListener("resize", () => {
  clearTimeout(resizing);
  resizing = setTimeout(() => rivers.forEach(river => river.resize()), 100);
});
document.documentElement.dataset.ready = "yes";
