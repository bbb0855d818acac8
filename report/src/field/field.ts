// The water surface over the tank, to be played.
import { placeText, timeText } from '../data/words';
import { lengthText, roundStep } from '../drawing/axis_ticks';
import type { ScaleKind } from '../drawing/colours';
import { SharpCanvas } from '../drawing/sharp_canvas';
import { chartFrame, element } from '../page/frame';
import type { Page, Part } from '../page/page';
import type { Fit } from '../tank/tank_extent';
import { drawFieldChart, fieldHeight, type FieldChart } from './field_drawing';
import { FieldPicture } from './field_picture';
import { FieldPlayer } from './field_player';
import { fieldCaption, frameCsv, frameText, heightText } from './field_text';

export const fieldPart: Part = async (page: Page) => {
  const { field } = page.data;
  if (!field || field.eta.shape.some((length) => length === 0)) return null;
  const picture = await FieldPicture.load(field);
  const { view } = page;
  const look = { kind: 'diverging' as ScaleKind, range: usualRange(picture.largest) };
  const chart = (): FieldChart => ({ page, picture, time: view.time, ...look });
  let fitted: Fit | undefined;

  const frame = chartFrame({
    id: 'field',
    title: 'Water surface',
    caption: fieldCaption(field),
    png: () => canvas.picture(),
    csv: () => frameCsv(picture, view.time),
  });
  const canvas = new SharpCanvas(
    frame.body,
    view,
    (width) => fieldHeight(page, width, 640),
    (ctx, width, height) => {
      fitted = drawFieldChart(ctx, width, height, chart());
      if (!view.playing) canvas.label(frameText(picture, view.time));
    },
  );
  const readout = element('div', 'readout');
  const player = new FieldPlayer(view, picture);
  player.controls.append(
    choice('Colours', [['blue to orange', 'diverging'], ['white to blue', 'sequential'], ['grey', 'grey']], (kind) => {
      look.kind = kind as ScaleKind;
      canvas.redraw();
    }),
    choice('Range', ranges(picture.largest), (range) => {
      look.range = Number(range);
      canvas.redraw();
    }),
  );
  canvas.canvas.tabIndex = 0;
  frame.body.append(readout, player.controls);
  frame.body.addEventListener('keydown', (event) => player.key(event));
  canvas.canvas.addEventListener('click', () => canvas.canvas.focus());

  let pointer: [number, number] | undefined;
  const read = (): void => {
    readout.textContent = pointer && fitted ? hoverText(picture, view.time, fitted.metres(...pointer)) : '';
  };
  canvas.canvas.addEventListener('pointermove', (event) => {
    pointer = [event.offsetX, event.offsetY];
    read();
  });
  canvas.canvas.addEventListener('pointerleave', () => {
    pointer = undefined;
    read();
  });
  view.watch(read);
  return frame.section;
};

// Still water has no range; it gets one, so that it can be painted.
export function usualRange(largest: number): number {
  return largest > 0 ? largest : 0.001;
}

// All heights, and some round ranges that show small waves.
function ranges(largest: number): [string, string][] {
  const all = usualRange(largest);
  const choices: [string, string][] = [[`± ${lengthText(all)} (all)`, String(all)]];
  // A third of 1, 2 or 5 is below the next smaller of them, and above the one after.
  for (let range = roundStep(all / 3); choices.length < 5; range = roundStep(range / 3)) {
    if (range < 0.9 * all) choices.push([`± ${lengthText(range, 1)}`, String(range)]);
  }
  return choices;
}

function hoverText(picture: FieldPicture, time: number, [x, y]: [number, number]): string {
  const height = picture.heightAt(x, y, time);
  const at = `${placeText(x, y)}, at ${timeText(picture.nearest(time), picture.rate)}`;
  return Number.isNaN(height) ? `${at}: not in the field` : `${at}: ${heightText(height)}`;
}

function choice(name: string, options: [string, string][], act: (value: string) => void): HTMLElement {
  const label = element('label', '', name);
  const select = element('select');
  for (const [text, value] of options) {
    const option = element('option', '', text);
    option.value = value;
    select.append(option);
  }
  select.addEventListener('change', () => act(select.value));
  label.append(select);
  return label;
}
