// --- Rivers: panels with one cursor -----------------------------------------------------------------------

const hidden = new Set();         // runs
const shownSeries = new Set();    // by place in the setup
let statistic = "judged";
const rivers = [];

const colourOf = run => dark.matches ? setup.runs[run].dark : setup.runs[run].light;
const ink = name => getComputedStyle(document.documentElement).getPropertyValue(name).trim();

// Numbers of a column: "2 6  =3" has nothing between two blanks, and three times what the base has there.
function numbersOf(text, like) {
  const values = [];
  for (const part of text.split(" ")) {
    if (part === "") values.push(null);
    else if (part[0] !== "=") values.push(Number(part));
    else for (let k = Number(part.slice(1) || 1); k > 0; --k) values.push(like[values.length]);
  }
  return values;
}

class River {
  constructor(section) {
    this.section = section;
    this.readout = section.querySelector(".readout");
    this.plots = [];
    this.place = -1;
  }

  // Built when it comes near what is seen.
  build() {
    if (this.data) return;
    this.data = dataOf(this.section.id + "-data");
    const km = this.data.km;
    if (km.length < 2) return;
    this.whole = [Math.min(0, km[0]), Math.max(km[km.length - 1], km[0] + 1e-6)];
    this.range = this.whole;
    this.names = new Map(this.data.names);
    this.live = make("div", {class: "live"});
    this.section.querySelector(".pictures").before(this.live);
    this.section.classList.add("is-live");
    this.buildReadout();
    this.panels = setup.series.map((series, k) => this.buildPanel(series, k));
    this.moveTo(0);
  }

  buildReadout() {
    this.slider = make("input", {type: "range", min: 0, max: this.data.km.length - 1, value: 0, step: 1});
    this.slider.addEventListener("input", () => this.moveTo(Number(this.slider.value)));
    this.slider.addEventListener("keydown", event => this.jump(event));
    this.text = make("output", {class: "place"});
    this.readout.append(make("label", {}, "Place", this.slider), this.text);
    for (const [words, act] of [["Zoom in", () => this.zoom(0.5)], ["Zoom out", () => this.zoom(2)], ["All", () => this.show(this.whole)]]) {
      const button = make("button", {type: "button", class: "act"}, words);
      button.setAttribute("aria-label", words + ": " + this.section.querySelector("h3").textContent);
      button.addEventListener("click", act);
      this.readout.append(button);
    }
    const pictures = all("svg.picture", this.section);
    this.live.after(make("p", {class: "save"}, ...pictures.map((picture, k) =>
      saveButton(picture, pictures.length > 1 ? " " + (k + 1) : ""))));
  }

  // With Ctrl to the next feature that has a name.
  jump(event) {
    if (!event.ctrlKey || !["ArrowLeft", "ArrowRight"].includes(event.key)) return;
    event.preventDefault();
    const step = event.key === "ArrowRight" ? 1 : -1;
    let k = this.place + step;
    while (k >= 0 && k < this.data.km.length && !this.names.has(k)) k += step;
    if (k >= 0 && k < this.data.km.length) this.moveTo(k);
  }

  buildPanel(series, k) {
    const plot = make("div", {class: "plot"});
    const values = make("div", {class: "values"});
    const note = make("small", {class: "quiet"});
    const figure = make("section", {class: "panel"}, make("h4", {}, make("bdi", {}, series.title), note), values, plot);
    figure.setAttribute("aria-label", series.title);
    figure.dataset.series = series.name;
    figure.hidden = !shownSeries.has(k);
    this.live.append(figure);
    const panel = {k, series, figure, plot, values, note, runs: this.data.series[k]};
    plot.setAttribute("role", "img");
    plot.setAttribute("aria-label", series.title + " over the distance; the slider above reads its values");
    if (!figure.hidden) this.draw(panel);
    return panel;
  }

  // Which statistic a panel shows of a run: its prefix in the data.
  prefix(panel, run) {
    return statistic === "judged" && panel.runs[run].j ? "j" : "m";
  }

  column(panel, run, part = "") {
    return this.numbers(panel, run, this.prefix(panel, run) + part);
  }

  // Read when they are first looked at.
  numbers(panel, run, name) {
    const values = panel.runs[run][name];
    if (typeof values !== "string") return values;
    const like = run > 0 ? this.numbers(panel, 0, name) : null;
    return panel.runs[run][name] = numbersOf(values, like);
  }

  draw(panel) {
    panel.uplot?.destroy();
    const isOther = statistic === "judged" && panel.series.other;
    panel.note.textContent = isOther ? panel.series.other : "mean";
    // A value that a run lacks is joined over, so it is undefined.
    const joined = values => values.map(value => value ?? undefined);
    const data = [this.data.km, ...setup.runs.map((_, run) => joined(this.column(panel, run)))];
    const series = [{}, ...setup.runs.map((run, k) => ({
      show: !hidden.has(k), stroke: () => colourOf(k), width: 1.75, dash: run.dash ? run.dash.split(" ").map(Number) : undefined,
      points: {show: false}}))];
    const bands = this.bands(panel, data, series, joined);
    const axis = {stroke: () => ink("--axis"), grid: {stroke: () => ink("--grid"), width: 1}, ticks: {show: false}, font: "11px system-ui,sans-serif"};
    panel.uplot = new uPlot({
      width: Math.max(200, panel.plot.clientWidth), height: 150, series, bands, legend: {show: false},
      padding: [8, 24, 0, 0], // "km" stands behind the last number
      scales: {x: {time: false, range: () => this.range}, y: {range: (_, low, high) => this.valueRange(panel, low, high)}},
      axes: [{...axis, size: 26, values: (_, splits) => splits.map((km, k) => Number(km.toPrecision(6)) + (k === splits.length - 1 ? " km" : ""))}, {...axis, size: 48, values: (_, splits) => splits.map(value => String(Number(value.toPrecision(6))))}],
      cursor: {y: false, drag: {x: true, y: false, setScale: false}, points: {size: 6},
        dataIdx: (_, run, closest) => this.moving ? this.place : closest},
      hooks: {
        setCursor: [u => this.follow(u)],
        setSelect: [u => u.select.width > 4 && this.show([u.posToVal(u.select.left, "x"), u.posToVal(u.select.left + u.select.width, "x")])],
        drawClear: [u => this.drawBoundaries(u)],
        draw: [u => this.drawMarks(u, panel)],
      },
    }, data, panel.plot);
    panel.uplot.over.addEventListener("dblclick", () => this.show(this.whole));
  }

  // The confidence limits of each run that is shown: two more curves, and what lies between them.
  bands(panel, data, series, joined) {
    const opacity = setup.runs.length <= 2 ? "2e" : setup.runs.length <= 4 ? "1f" : "12";
    return setup.runs.flatMap((_, run) => {
      const low = !hidden.has(run) && this.column(panel, run, "l");
      if (!low) return [];
      data.push(joined(this.column(panel, run, "h")), joined(low));
      series.push({stroke: "transparent", points: {show: false}}, {stroke: "transparent", points: {show: false}});
      return [{series: [data.length - 2, data.length - 1], fill: () => colourOf(run) + opacity}];
    });
  }

  // What is seen of targets and samples counts, too.
  valueRange(panel, low, high) {
    let top = high ?? 1, bottom = Math.min(0, low ?? 0);
    const isSeen = k => this.data.km[k] >= this.range[0] && this.data.km[k] <= this.range[1];
    setup.runs.forEach((_, run) => {
      if (hidden.has(run)) return;
      for (const [, from, to, target] of this.targets(panel, run))
        if (to >= this.range[0] && from <= this.range[1] && this.isJudgedShown(panel)) top = Math.max(top, target);
      for (const [k, value] of this.column(panel, run, "o"))
        if (isSeen(k)) top = Math.max(top, value);
    });
    if (top <= bottom) top = bottom + 1;
    return [bottom, top + 0.06 * (top - bottom)];
  }

  // A target is one of the judged statistic.
  isJudgedShown(panel) {
    return statistic === "judged" || !panel.series.other;
  }

  // Stretches of equal target: [place, from km, to km, target].
  targets(panel, run) {
    const changes = panel.runs[run].t ?? [], km = this.data.km;
    return changes.flatMap(([k, target], i) =>
      target === null ? [] : [[k, km[k], i + 1 < changes.length ? km[changes[i + 1][0]] : km[km.length - 1], target]]);
  }

  // Calls `act` with the canvas, cut to where curves are.
  within(u, act) {
    const {left, top, width, height} = u.bbox, draw = u.ctx;
    draw.save();
    draw.beginPath();
    draw.rect(left, top, width, height);
    draw.clip();
    act(draw);
    draw.restore();
  }

  // Between reaches.
  drawBoundaries(u) {
    this.within(u, draw => {
      draw.lineWidth = devicePixelRatio;
      draw.strokeStyle = ink("--axis");
      draw.globalAlpha = 0.5;
      draw.setLineDash([2 * devicePixelRatio, 3 * devicePixelRatio]);
      draw.beginPath();
      for (const [km] of this.data.reaches.slice(1)) {
        const x = Math.round(u.valToPos(km, "x", true)) + 0.5;
        draw.moveTo(x, u.bbox.top);
        draw.lineTo(x, u.bbox.top + u.bbox.height);
      }
      draw.stroke();
    });
  }

  drawMarks(u, panel) {
    const x = km => u.valToPos(km, "x", true), y = value => u.valToPos(value, "y", true);
    this.within(u, draw => {
      if (this.isJudgedShown(panel)) this.drawTargets(draw, panel, x, y);
      setup.runs.forEach((_, run) => this.drawObserved(draw, panel, run, x, y));
    });
  }

  // Those of a run only where they differ from the base's.
  isLikeBase(panel, run, part) {
    return run > 0 && !hidden.has(0) && JSON.stringify(panel.runs[run][part]) === JSON.stringify(panel.runs[0][part]);
  }

  drawTargets(draw, panel, x, y) {
    setup.runs.forEach((_, run) => {
      if (hidden.has(run) || this.isLikeBase(panel, run, "t")) return;
      draw.strokeStyle = run === 0 ? ink("--target") : colourOf(run);
      draw.lineWidth = 1.5 * devicePixelRatio;
      draw.setLineDash([6 * devicePixelRatio, 3 * devicePixelRatio]);
      draw.beginPath();
      for (const [, from, to, target] of this.targets(panel, run)) {
        draw.moveTo(x(from), y(target));
        draw.lineTo(x(to), y(target));
      }
      draw.stroke();
      draw.setLineDash([]);
    });
  }

  drawObserved(draw, panel, run, x, y) {
    if (hidden.has(run) || this.isLikeBase(panel, run, this.prefix(panel, run) + "o")) return;
    const half = 3.5 * devicePixelRatio;
    draw.strokeStyle = run === 0 ? ink("--ink") : colourOf(run);
    draw.lineWidth = 1.25 * devicePixelRatio;
    draw.beginPath();
    for (const [k, value] of this.column(panel, run, "o")) {
      const [px, py] = [x(this.data.km[k]), y(value)];
      draw.moveTo(px - half, py - half);
      draw.lineTo(px + half, py + half);
      draw.moveTo(px - half, py + half);
      draw.lineTo(px + half, py - half);
    }
    draw.stroke();
  }

  // The pointer in one panel moves the cursor of all.
  follow(u) {
    if (!this.moving && u.cursor.left >= 0 && u.cursor.idx !== null) this.moveTo(u.cursor.idx, u);
  }

  moveTo(place, from = null) {
    if (place === this.place && from) return;
    this.place = place;
    this.moving = true;
    for (const panel of this.panels) {
      if (panel.figure.hidden || !panel.uplot) continue;
      if (panel.uplot !== from) panel.uplot.setCursor({left: panel.uplot.valToPos(this.data.km[place], "x"), top: 10});
      this.showValues(panel);
    }
    this.moving = false;
    this.slider.value = place;
    const words = this.placeWords();
    this.text.replaceChildren(...words.flatMap((part, k) => [k > 0 ? " \u00b7 " : "", make("bdi", {}, part)]));
    this.slider.setAttribute("aria-valuetext", [...words, ...this.spoken()].join("; "));
  }

  reachAt(place) {
    return this.data.reaches.filter(reach => reach[2] <= place).pop() ?? this.data.reaches[0];
  }

  placeWords() {
    const name = this.names.get(this.place);
    return [this.data.km[this.place].toFixed(2) + " km", ...(name ? [name] : []), this.reachAt(this.place)[1]];
  }

  valueWords(panel, run) {
    const value = this.column(panel, run)[this.place];
    if (value === null || value === undefined) return "none";
    const [low, high] = ["l", "h"].map(part => this.column(panel, run, part)?.[this.place]);
    const base = run > 0 ? this.column(panel, 0)[this.place] : null;
    let words = shown(value);
    if (run === 0 && typeof low === "number") words += " (" + shown(low) + " to " + shown(high) + ")";
    if (base) words += " (" + (value > base ? "+" : "") + (100 * (value - base) / base).toFixed(1) + " %)";
    return words;
  }

  showValues(panel) {
    panel.values.replaceChildren(...setup.runs.flatMap((_, run) => hidden.has(run) ? [] :
      [make("span", {"data-run": run}, swatch(run), this.valueWords(panel, run))]));
  }

  spoken() {
    return this.panels.filter(panel => !panel.figure.hidden).map(panel => panel.series.title + " " +
      setup.runs.flatMap((run, k) => hidden.has(k) ? [] : [run.name + " " + this.valueWords(panel, k)]).join(", "));
  }

  show(range) {
    const [low, high] = this.whole;
    const least = (high - low) / 500;
    let [from, to] = [Math.max(low, range[0]), Math.min(high, range[1])];
    if (to - from < least) to = Math.min(high, from + least);
    this.range = [from, to];
    for (const panel of this.panels) {
      if (!panel.uplot) continue;
      panel.uplot.setSelect({left: 0, top: 0, width: 0, height: 0}, false);
      panel.uplot.setScale("x", {min: from, max: to});
    }
    this.moveTo(this.place);
  }

  zoom(factor) {
    const middle = this.data.km[this.place], half = (this.range[1] - this.range[0]) * factor / 2;
    const centre = Math.min(Math.max(middle, this.whole[0] + half), Math.max(this.whole[1] - half, this.whole[0]));
    this.show([centre - half, centre + half]);
  }

  redraw() {
    if (!this.panels) return;
    for (const panel of this.panels) {
      panel.figure.hidden = !shownSeries.has(panel.k);
      if (!panel.figure.hidden) this.draw(panel);
    }
    const place = this.place;
    this.place = -1;
    this.moveTo(place);
  }

  resize() {
    for (const panel of this.panels ?? [])
      if (panel.uplot && !panel.figure.hidden && panel.plot.clientWidth > 0)
        panel.uplot.setSize({width: panel.plot.clientWidth, height: 150});
  }
}
