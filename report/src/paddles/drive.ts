// The signals of the machine: a tab for each bank with its heat map, its paddles beside each other,
// and the chosen paddle.
import { reset, TimeStretch } from '../charts/stretch';
import { csvTable } from '../data/csv_table';
import { inUnit } from '../data/units';
import { button, chartFrame, element } from '../page/frame';
import { whenNear } from '../page/lazy';
import type { Page } from '../page/page';
import { tabs } from '../page/tabs';
import { bankData, bankRow, bounds, excursion, paddleNumber, worstPaddle, type BankData } from './bank_data';
import { bankOverview } from './bank_overview';
import { DriveMap } from './drive_map';
import { paddleCharts } from './paddle_charts';
import { paddleChoice } from './paddle_choice';

export async function drivePart(page: Page): Promise<HTMLElement | null> {
  const { data, view } = page;
  const { drive } = data.summary;
  if (!drive || data.drive.length === 0) return null;
  const section = element('section', 'part');
  section.id = 'drive';
  section.append(element('h2', '', 'Paddles'));
  const worst = data.drive.map((of) => worstPaddle({ of, summary: drive.banks[of.bank] }));
  const panels = data.drive.map((of, i) => {
    const panel = element('div', 'bank');
    const { name } = drive.banks[of.bank];
    whenNear(panel, async () =>
      panel.replaceChildren(...(await bankParts(page, i, data.drive.length > 1 ? ` of bank ${name}` : ''))),
    );
    return { name, panel };
  });
  if (panels.length > 1) {
    section.append(tabs('drive', 'Banks', panels, (i) => view.set({ bank: data.drive[i].bank, paddle: worst[i] })));
  } else {
    view.set({ bank: data.drive[0].bank, paddle: worst[0] });
  }
  section.append(...panels.map(({ panel }) => panel));
  return section;
}

async function bankParts({ data, view }: Page, index: number, ofBank: string): Promise<HTMLElement[]> {
  const bank = await bankData(data, index);
  const title = `Positions of all paddles${ofBank} over time`;
  const map = new DriveMap(bank, view, title);
  const frame = chartFrame({
    id: `drive-${index + 1}-map`,
    title,
    caption: caption(bank),
    png: () => map.picture(title),
    csv: () => mapCsv(bank),
  });
  frame.tools.prepend(
    paddleChoice(bank, view),
    button('Reset', 'Show all of it again (double click or Escape)', () => reset(new TimeStretch(view))),
  );
  frame.body.append(map.root);
  const overview = bank.of.highest.length > 1 ? [bankOverview(bank, view)] : [];
  return [frame.section, paddleCharts(bank, view), ...overview];
}

function caption(bank: BankData): string {
  const { of } = bank;
  const paddles = of.highest.length;
  const [low, high] = bounds(bank);
  const known = Number.isFinite(low) && Number.isFinite(high);
  const beyond = of.highest.map((_, i) => i).filter((i) => of.highest[i] > high || of.lowest[i] < low);
  const named = beyond
    .slice(0, 5)
    .map((i) => paddleNumber(bank, i))
    .join(', ');
  const counted = beyond.length > 5 ? `${named} and ${beyond.length - 5} more` : named;
  const limits = `beyond the limits ${excursion(bank, low)} and ${excursion(bank, high)}`;
  const none = known ? ` No paddle goes ${limits}.` : '';
  const some =
    ` ${beyond.length} of ${paddles} paddles go ${limits} (${beyond.length === 1 ? 'paddle' : 'paddles'} ${counted}); ` +
    'there the map is striped in black and yellow.';
  const limit = beyond.length > 0 ? some : none;
  const missing = of.highest.filter((highest) => !Number.isFinite(highest)).length;
  return (
    `${paddles === 1 ? '1 paddle' : `${paddles} paddles`}, up to ${excursion(bank, bank.peak)} from rest. ` +
    `Each pixel shows the largest excursion within it.${limit}` +
    (missing > 0 ? ` Signals that are NaN are left blank (paddles: ${missing}).` : '') +
    (of.paddles.length < paddles
      ? ` Thinned: ${of.paddles.length} of ${paddles} paddles are shown, the worst among them.`
      : '') +
    (of.every > 1 ? ` Thinned: one in ${of.every} samples of the run is shown.` : '')
  );
}

function mapCsv(bank: BankData): string {
  const time = Float64Array.from({ length: bank.samples }, (_, i) => i / bank.of.rate);
  const columns = bank.of.paddles.map((paddle, row) => ({
    name: `paddle ${paddleNumber(bank, paddle)}`,
    unit: bank.unit.name,
    values: inUnit(bankRow(bank, row), bank.unit),
  }));
  return csvTable([{ name: 'time', unit: 's', values: time }, ...columns]);
}
