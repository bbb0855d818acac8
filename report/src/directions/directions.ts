// Energy by frequency and direction, made and asked.
import { csvLine } from '../data/csv';
import type { Directions } from '../data/data';
import { plainNumber } from '../drawing/axis_ticks';
import { SharpCanvas } from '../drawing/sharp_canvas';
import { button, chartFrame, element, type ChartFrame } from '../page/frame';
import type { Part } from '../page/page';
import { onPaper } from '../page/printing';
import { binOf, directionEnergy, sectorOf, type DirectionEnergy } from './direction_energy';
import { drawPolar } from './polar_drawing';
import { conventionText, degreesOf, PolarLayout, type Convention } from './polar_layout';
import { drawPolarLegend } from './polar_legend';

const legendWidth = 84;

export const directionsPart: Part = async ({ data, view }) => {
  const directions = data.summary.directions;
  if (!directions || directions.variance.length === 0) return null;
  const energy = directionEnergy(directions);
  let convention: Convention = 'tank';
  let chosen: { row: number; column: number } | undefined;
  const frame = chartFrame({
    id: 'directions',
    title: 'Directions',
    caption: '',
    png: () => chart.picture(),
    csv: () => csv(directions),
  });
  const layout = (): PolarLayout => {
    const size = Math.max(120, Math.min(onPaper() ? 420 : 520, (chart.width || 600) - legendWidth));
    return new PolarLayout(size, energy.f[energy.shown], convention);
  };
  const chart = new SharpCanvas(
    frame.body,
    view,
    () => layout().size,
    (ctx) => {
      const { size } = layout();
      drawPolar(ctx, layout(), energy, chosen);
      drawPolarLegend(ctx, energy.densest, energy.asked !== undefined, size + 6, 0.12 * size, 0.6 * size);
    },
  );
  const readout = element('p', 'readout');
  readout.setAttribute('role', 'status');
  frame.section.insertBefore(readout, frame.body.nextSibling);
  const choose = (cell: typeof chosen): void => {
    chosen = cell;
    chart.redraw();
    readout.textContent = cell ? cellText(energy, cell, convention) : '';
  };
  const describe = (): void => {
    const caption = captionOf(energy, convention);
    frame.setCaption(caption);
    chart.label(`Polar plot of energy by direction. ${caption} With the arrow keys a sector is chosen.`);
  };
  describe();
  addConventions(frame, (next) => {
    convention = next;
    describe();
    choose(undefined);
  });
  chart.canvas.addEventListener('pointermove', (event) => choose(cellAt(layout(), energy, event.offsetX, event.offsetY)));
  chart.canvas.addEventListener('pointerleave', () => choose(undefined));
  followKeys(chart.canvas, energy, () => chosen, choose);
  return frame.section;
};

type Cell = { row: number; column: number };

function cellAt(layout: PolarLayout, energy: DirectionEnergy, x: number, y: number): Cell | undefined {
  const at = layout.at(x, y);
  if (!at) return undefined;
  const column = sectorOf(energy.angle, at.direction);
  const row = Math.min(energy.shown - 1, Math.max(0, binOf(energy.f, at.f)));
  return column >= 0 && at.f >= energy.f[0] ? { row, column } : undefined;
}

function followKeys(
  canvas: HTMLCanvasElement,
  energy: DirectionEnergy,
  chosen: () => Cell | undefined,
  choose: (cell?: Cell) => void,
): void {
  canvas.tabIndex = 0;
  canvas.addEventListener('keydown', (event) => {
    if (event.key === 'Escape') choose(undefined);
    // Left turns anticlockwise on the screen.
    const turn = { ArrowLeft: 1, ArrowRight: -1 }[event.key] ?? 0;
    const out = { ArrowUp: 1, ArrowDown: -1 }[event.key] ?? 0;
    if ((turn === 0 && out === 0) || event.ctrlKey || event.altKey || event.metaKey) return;
    event.preventDefault();
    const columns = energy.angle.length - 1;
    const from = chosen() ?? densestCell(energy);
    choose({
      row: Math.min(energy.shown - 1, Math.max(0, from.row + out)),
      column: (from.column + turn + columns) % columns,
    });
  });
}

function densestCell({ density, densest }: DirectionEnergy): Cell {
  const row = density.findIndex((values) => values.includes(densest));
  return { row: Math.max(0, row), column: Math.max(0, density[row]?.indexOf(densest) ?? 0) };
}

function addConventions(frame: ChartFrame, choose: (convention: Convention) => void): void {
  const names: Record<Convention, string> = { tank: 'Tank', nautical: 'Nautical' };
  const buttons = (Object.keys(names) as Convention[]).map((convention) => {
    const made = button(names[convention], conventionText(convention), () => {
      for (const other of buttons) other.setAttribute('aria-pressed', String(other === made));
      choose(convention);
    });
    made.setAttribute('aria-pressed', String(convention === 'tank'));
    return made;
  });
  frame.tools.prepend(...buttons);
}

function cellText(energy: DirectionEnergy, { row, column }: Cell, convention: Convention): string {
  const { f, angle, density, made, asked, total } = energy;
  // Shares without meaning are none.
  const share = (value: number): string => `${value < 1e-6 * total ? 0 : plainNumber((100 * value) / total, 2)} %`;
  const all = asked ? `asked ${share(asked[column])}, made ${share(made[column])}` : share(made[column]);
  return (
    `${sectorText(angle, column, convention)}, ${plainNumber(f[row])} Hz to ${plainNumber(f[row + 1])} Hz: ` +
    `${plainNumber(density[row][column])} mm²/(Hz deg)   this direction: ${all} of the variance`
  );
}

// The middle of a sector and its width: "10° (5° wide)".
function sectorText(angle: number[], column: number, convention: Convention): string {
  const middle = Math.round(5 * (angle[column] + angle[column + 1]) * (180 / Math.PI)) / 10;
  const width = ((angle[column + 1] - angle[column]) * 180) / Math.PI;
  return `${plainNumber(degreesOf((middle * Math.PI) / 180, convention), 4)}° (${plainNumber(width)}° wide)`;
}

function captionOf(energy: DirectionEnergy, convention: Convention): string {
  const { made, angle, f, shown, beyond, total, asked } = energy;
  const sentences = [`${conventionText(convention)}.`];
  if (total > 0) {
    const column = made.indexOf(Math.max(...made));
    sentences.push(`Most energy: ${sectorText(angle, column, convention)}, ${plainNumber((100 * made[column]) / total, 2)} % of ${plainNumber(total)} mm².`);
  }
  sentences.push('Disc: variance density, frequency outward from 0.');
  sentences.push(`Ring: variance of each direction${asked ? ', made (filled) and asked (dashed)' : ''}.`);
  if (beyond > 0.0005) sentences.push(`${plainNumber(100 * beyond, 2)} % lies above ${plainNumber(f[shown])} Hz and is not drawn.`);
  return sentences.join(' ');
}

// A row for each cell; then one for each direction over all frequencies, with what was asked.
function csv({ f, angle, variance, asked }: Directions): string {
  const degrees = (edge: number): number => (edge * 180) / Math.PI;
  const head = ['f from [Hz]', 'f to [Hz]', 'going to, from [deg]', 'going to, to [deg]', 'made [m2]', 'asked [m2]'];
  const cells = variance.flatMap((row, i) =>
    row.map((made, j) => [f[i], f[i + 1], degrees(angle[j]), degrees(angle[j + 1]), made, null]),
  );
  const sums = angle.slice(1).map((edge, j) => {
    const made = variance.reduce((sum, row) => sum + (row[j] ?? 0), 0);
    return [f[0], f[f.length - 1], degrees(angle[j]), degrees(edge), made, asked?.[j]];
  });
  return [head, ...cells, ...sums].map(csvLine).join('');
}
