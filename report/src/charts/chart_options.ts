// Turns a chart into options of uPlot.
import uPlot from 'uplot';
import { named } from '../data/csv_table';
import { minus, plainNumber } from '../drawing/axis_ticks';
import { lineLook, markLook, type ChartAxis, type Line, type LineChartData, type Palette } from './chart_types';

export interface Drawing {
  width: number;
  height: number;
  scale: number; // of fonts and lines: 2 in pictures
  palette: Palette;
  shown: boolean[]; // lines, then marks
}

export function chartOptions(data: LineChartData, drawing: Drawing): uPlot.Options {
  const { palette, scale: k, shown } = drawing;
  return {
    width: drawing.width,
    height: drawing.height,
    legend: { show: false },
    padding: [8 * k, 14 * k, 0, 0],
    scales: {
      x: { time: false, range: () => [data.stretch.from, data.stretch.to] },
      y: { distr: data.y.log ? 3 : 1, range: (_, lowest, highest) => yRange(data, shown, lowest, highest) },
    },
    axes: [axis(data.x, palette, k), { ...axis(data.y, palette, k), ...vertical(data, k) }],
    series: [{}, ...data.lines.map((line, i) => series(line, i, drawing))],
    cursor: {
      y: false,
      drag: { x: true, y: false, setScale: false, dist: 4 },
      hover: { prox: 12 },
      points: { size: 7, fill: palette.paper, width: 2 },
    },
    hooks: {
      drawClear: [(plot) => dashWhereItShows(plot, data, k)],
      draw: [(plot) => drawMarks(plot, data, drawing)],
    },
  };
}

// 1, 2 and 5 times powers of ten: their multiples have few digits.
const roundSteps = Array.from({ length: 60 }, (_, i) => Number(`${[1, 2, 5][i % 3]}e${Math.floor(i / 3) - 9}`));

function axis({ name, unit, text }: ChartAxis, palette: Palette, k: number): uPlot.Axis {
  const font = `${Math.round(12 * k)}px system-ui, 'Liberation Sans', Arial, sans-serif`;
  return {
    label: named(name, unit),
    font,
    labelFont: font,
    stroke: palette.ink,
    size: 28 * k,
    labelSize: 20 * k,
    gap: 4 * k,
    space: 44 * k,
    grid: { stroke: palette.line, width: 0.7 * k },
    ticks: { stroke: palette.line, width: k, size: 5 * k },
    incrs: roundSteps,
    values: (_plot, splits, _axis, _space, step) =>
      splits.map(
        (value) => text?.(value) ??
          minus(value.toFixed(Math.min(9, Math.max(0, -Math.floor(Math.log10(step) + 1e-9))))),
      ),
  };
}

function vertical(data: LineChartData, k: number): Partial<uPlot.Axis> {
  const wide: uPlot.Axis.Size = (_plot, values) =>
    (Math.max(2, ...(values ?? []).map((text) => String(text ?? '').length)) * 7 + 16) * k;
  if (!data.y.log) return { space: 32 * k, size: wide };
  return {
    size: wide,
    values: (_plot, splits) => splits.map((value) => (value === null ? '' : plainNumber(value, 1))),
  };
}

function yRange(
  data: LineChartData,
  shown: boolean[],
  lowest: number | null,
  highest: number | null,
): [number, number] {
  const marks = (data.marks ?? []).flatMap((mark, i) =>
    mark.axis === 'y' && shown[data.lines.length + i] ? mark.at : [],
  );
  const base = data.lines.some((line) => line.kind === 'bars') ? [0] : [];
  const all = [...marks, ...base, lowest ?? NaN, highest ?? NaN].filter(Number.isFinite);
  if (all.length === 0) return data.y.log ? [0.1, 1] : [-1, 1];
  const low = Math.min(...all);
  const high = Math.max(...all);
  if (data.y.range) return data.y.range(low, high);
  if (data.y.log) {
    const top = 10 ** Math.ceil(Math.log10(high));
    return [Math.max(10 ** Math.floor(Math.log10(low)), top * 1e-6), top];
  }
  const pad = high > low ? 0.06 * (high - low) : Math.abs(high) || 1;
  return [low >= 0 && low < 0.3 * high ? 0 : low - pad, high + pad];
}

function series(line: Line, index: number, { palette, scale: k, shown }: Drawing): uPlot.Series {
  const look = lineLook(index);
  const stroke = palette[look.colour];
  const common: uPlot.Series = {
    label: line.name,
    show: shown[index],
    stroke,
    width: 1.75 * k,
    points: { show: false },
  };
  const dots: uPlot.Series.Points = { show: true, size: 8 * k, fill: palette.paper, stroke, width: 2 * k };
  switch (line.kind ?? 'line') {
    case 'line':
      // Samples far apart are shown as such, and a single one at all.
      return {
        ...common,
        dash: look.dash.map((length) => length * k),
        points: {
          size: 5 * k,
          fill: stroke,
          show: (plot, _i, from, to) => !line.plain && to - from < plot.bbox.width / (20 * k * uPlot.pxRatio),
        },
      };
    case 'area':
      return { ...common, fill: palette.line, fillTo: (plot) => plot.scales.y.min! };
    case 'stem':
      return { ...common, paths: stems, points: dots };
    case 'post':
      return { ...common, width: 3 * k, paths: stems };
    case 'dots':
      return { ...common, paths: () => null, points: { ...dots, fill: stroke } };
    case 'bars':
      return { ...common, width: 0, fill: stroke, paths: uPlot.paths.bars!({ size: [0.75, 28 * k] }) };
  }
}

const stems: uPlot.Series.PathBuilder = (plot, index, from, to) => {
  const path = new Path2D();
  const base = plot.valToPos(Math.max(0, plot.scales.y.min!), 'y', true);
  for (let i = from; i <= to; ++i) {
    const value = plot.data[index][i];
    if (value === null || value === undefined) continue;
    const x = plot.valToPos(plot.data[0][i], 'x', true);
    path.moveTo(x, base);
    path.lineTo(x, plot.valToPos(value, 'y', true));
  }
  return { stroke: path };
};

// Dashes of a dense line would be noise, and take long to draw.
function dashWhereItShows(plot: uPlot, data: LineChartData, k: number): void {
  data.lines.forEach((line, i) => {
    if ((line.kind ?? 'line') !== 'line') return;
    const x = line.x ?? data.x.values;
    const part = (data.stretch.to - data.stretch.from) / (x[x.length - 1] - x[0]);
    const dense = x.length * part > plot.bbox.width / 2;
    plot.series[i + 1].dash = dense ? [] : lineLook(i).dash.map((length) => length * k);
  });
}

function drawMarks(plot: uPlot, data: LineChartData, { palette, scale: k, shown }: Drawing): void {
  const { ctx, bbox } = plot;
  ctx.save();
  ctx.beginPath();
  ctx.rect(bbox.left, bbox.top, bbox.width, bbox.height);
  ctx.clip();
  const unit = k * uPlot.pxRatio;
  ctx.lineWidth = 1.5 * unit;
  (data.marks ?? []).forEach((mark, i) => {
    if (!shown[data.lines.length + i]) return;
    const look = markLook(i);
    ctx.strokeStyle = palette[look.colour];
    ctx.setLineDash(look.dash.map((length) => length * unit));
    ctx.beginPath();
    for (const at of mark.at) {
      const place = Math.round(plot.valToPos(at, mark.axis, true));
      if (mark.axis === 'x') (ctx.moveTo(place, bbox.top), ctx.lineTo(place, bbox.top + bbox.height));
      else (ctx.moveTo(bbox.left, place), ctx.lineTo(bbox.left + bbox.width, place));
    }
    ctx.stroke();
  });
  ctx.fillStyle = palette.ink;
  ctx.font = `${Math.round(12 * unit)}px system-ui, 'Liberation Sans', Arial, sans-serif`;
  for (const { x, y, text } of data.labels ?? []) {
    const left = plot.valToPos(x, 'x', true);
    const room = bbox.left + bbox.width - left > ctx.measureText(text).width + 8 * unit;
    ctx.textAlign = room ? 'left' : 'right';
    ctx.fillText(text, left + (room ? 7 : -7) * unit, plot.valToPos(y, 'y', true) - 7 * unit);
  }
  ctx.restore();
}
