// SPDX-License-Identifier: MIT
// The conversation of the selected ticket.
import {avatar, byId, customerName, element, fillAvatar, timeElement} from './dom.js';
import {readTicket} from './api.js';

// The distance to the end, in CSS pixels, within which the view follows new messages.
const endTolerance = 80;

const senderNames = {'ai agent': 'AI', 'human agent': 'Agent'};
const detailNames = {
    appVersion: 'App version', appBuild: 'App build', deviceModel: 'Device', deviceName: 'Name',
    osVersion: 'System', locale: 'Language', timezone: 'Time zone', batteryLevel: 'Battery',
    batteryState: 'Battery state', screenWidth: 'Screen width', screenHeight: 'Screen height',
};

const messages = byId('messages');

let shownId = null;
let shown = null;
let isReading = false;
let needsReading = false;
let reportError = () => {};

export const shownTicket = () => shown;

function openImage(url) {
    byId('viewed-image').src = url;
    byId('viewed-link').href = url;
    byId('viewer').showModal();
}

function fileName(url) {
    try {
        return decodeURIComponent(url.slice(url.lastIndexOf('/') + 1));
    } catch {
        return 'attachment';
    }
}

function attachment(url) {
    const name = fileName(url);
    const image = element('img', {src: url, alt: name});
    const button = element('button', {
        type: 'button', className: 'thumbnail', 'aria-label': `Open ${name}`,
    }, image);
    button.addEventListener('click', () => openImage(url));
    image.addEventListener('load', followEnd);
    // Files that are not images become links.
    image.addEventListener('error', () => button.replaceWith(element('a', {
        href: url, target: '_blank', rel: 'noopener', className: 'file',
    }, name)));
    return button;
}

function messageElement(message) {
    const {sender} = message;
    const isCustomer = sender.type === 'customer';
    const name = isCustomer ? customerName(shown) : sender.name || senderNames[sender.type];
    const row = element('li', {
        'data-message-id': message.id, 'data-sender': sender.type,
    });
    const text = message.content
        ? element('p', {className: 'text', dir: 'auto'}, message.content) : null;
    const images = (message.attachments ?? []).map(attachment);
    row.append(
        avatar(name, sender.profilePicture),
        element('div', {className: 'bubble'},
            text,
            images.length ? element('div', {className: 'thumbnails'}, ...images) : null),
        element('p', {className: 'caption'},
            element('span', {dir: 'auto'}, name), ' · ', timeElement(message.timestamp),
            element('span', {className: 'read'}, '')),
    );
    const picture = row.querySelector('.avatar img');
    picture?.addEventListener('error', () => fillAvatar(picture.parentElement, name));
    return row;
}

function markRead(row, message) {
    const isByAgent = message.sender.type !== 'customer';
    row.querySelector('.read').textContent = isByAgent && message.isRead ? ' · Read' : '';
}

const distanceToEnd = () =>
    messages.scrollHeight - messages.scrollTop - messages.clientHeight;
const scrollToEnd = () => { messages.scrollTop = messages.scrollHeight; };
let followsEnd = true;
let lastTop = 0;

function followEnd() {
    if (followsEnd)
        scrollToEnd();
}

function renderMessages() {
    const known = new Map([...messages.children].map((row) => [row.dataset.messageId, row]));
    const added = shown.messages.filter((message) => !known.has(message.id)).map(messageElement);
    messages.append(...added);
    const rows = new Map([...messages.children].map((row) => [row.dataset.messageId, row]));
    for (const message of shown.messages)
        markRead(rows.get(message.id), message);
    if (added.some((row) => row.dataset.sender !== 'customer'))
        followsEnd = true;
    followEnd();
}

function renderDetails() {
    const details = [
        ['Customer', shown.customer.id], ['Email', shown.customer.email],
        ['Id in the app', shown.customer.originalId],
        ['Ticket', shown.id], ['Channel', shown.channel],
        ['Pushes', shown.takesPushes ? 'A device is registered' : 'No device is registered'],
        ...Object.entries(detailNames).map(([key, name]) => [name, shown.device[key]]),
    ];
    const known = details.filter(([, value]) => value);
    byId('details-list').replaceChildren(...known.map(([name, value]) =>
        element('div', {}, element('dt', {}, name), element('dd', {dir: 'auto'}, value))));
}

function statusText({state, assignee, automatic}) {
    const assigneeText = assignee === 'ai agent' ? 'assigned to the AI' : 'assigned to a human';
    const replyText = automatic ? 'replies automatically' : 'replies by hand';
    return `${state === 'open' ? 'Open' : 'Closed'}, ${assigneeText}, ${replyText}`;
}

function render() {
    byId('conversation').dataset.ticketId = shown.id;
    byId('conversation').dataset.state = shown.state;
    byId('customer').textContent = customerName(shown);
    byId('ticket-status').textContent = statusText(shown);
    byId('assignee').value = shown.assignee;
    byId('ticket-automatic').checked = shown.automatic;
    byId('change-state').textContent = shown.state === 'open' ? 'Close' : 'Reopen';
    renderDetails();
    renderMessages();
}

/** Reads the conversation again. A change during the request causes another one. */
export async function refreshConversation() {
    if (!shownId)
        return;
    needsReading = true;
    if (isReading)
        return;
    isReading = true;
    try {
        while (needsReading && shownId) {
            needsReading = false;
            const id = shownId;
            const ticket = await readTicket(id);
            if (id !== shownId)
                continue;
            shown = ticket;
            byId('conversation').hidden = false;
            render();
        }
    } catch (error) {
        reportError(error);
    } finally {
        isReading = false;
    }
}

/** Shows the ticket with this id; null shows no ticket. */
export async function showConversation(id) {
    if (id !== shownId) {
        shownId = id;
        shown = null;
        followsEnd = true;
        messages.replaceChildren();
        byId('conversation').hidden = true;
    }
    byId('no-conversation').hidden = id !== null;
    await refreshConversation();
}

/** `report` is called with each error. */
export function startConversation(report) {
    reportError = report;
    messages.addEventListener('scroll', () => {
        // Only the agent scrolls up: when the content grows, the position stays.
        if (distanceToEnd() < endTolerance)
            followsEnd = true;
        else if (messages.scrollTop < lastTop)
            followsEnd = false;
        lastTop = messages.scrollTop;
    });
    new ResizeObserver(followEnd).observe(messages);
}
